#include "dialogs/frmBranch.h"

#include <array>
#include <utility>

namespace trevandix {

namespace {

constexpr std::array kControls{
    ControlSpec{ControlKind::Text, "txtBranchName", "Branch name:", "", Place::NextRow, 32}.describedAs(
        "Folder of the tags below it"),
    ControlSpec{ControlKind::Button, "cmdOk", "Ok", "", Place::ButtonRow}.describedAs(
        "Stores the name and closes the dialog"),
    ControlSpec{ControlKind::Button, "cmdCancel", "Cancel", "", Place::ButtonRow}.describedAs(
        "Closes the dialog without a change"),
};
constexpr FormSpec kForm{"frmBranch", "Branch Name", kControls, "cmdOk", "cmdCancel", "txtBranchName"};

}  // namespace

std::optional<clsBranch> frmBranch::showToAdd() {
    edit_ = false;
    show("NewBranch" + std::to_string(context_.configuration.state.branchCounter));
    return added_;
}

void frmBranch::showToEdit() {
    edit_ = true;
    show(context_.configuration.tree.selected()->text());
}

void frmBranch::show(std::string_view name) {
    added_.reset();
    form_ = context_.forms.create(kForm);
    connect<frmBranch>(*form_, context_.messages, *this,
                       {{"cmdOk", "cmdOk_Click", &frmBranch::cmdOk_Click},
                        {"cmdCancel", "cmdCancel_Click", &frmBranch::cmdCancel_Click}});
    form_->setText("txtBranchName", name);
    form_->showModal();
}

void frmBranch::cmdOk_Click() {
    Configuration& configuration = context_.configuration;
    const std::string name = form_->text("txtBranchName");
    if (!CheckDuplNames(NodeTag::Branch, name, configuration.tree, edit_, context_.messages)) return;
    TreeNode& node = *configuration.tree.selected();
    clsBranch record;
    record.sName(name);
    record.sKey(makeKey(name, node, edit_));
    if (edit_) {
        configuration.replaceBranch(node, std::move(record));
        configuration.tree.select(&node);
    } else {
        requireFree(configuration.branches, record.sKey());
        added_ = std::move(record);
    }
    configuration.setSaved(false);
    form_->close();
}

void frmBranch::cmdCancel_Click() {
    added_.reset();
    form_->close();
}

}  // namespace trevandix
