#include "dialogs/frmDuplicate.h"

#include <array>
#include <set>
#include <utility>

#include "model/Numbers.h"
#include "model/UnitChoices.h"

namespace trevandix {

namespace {

constexpr ControlSpec kName =
    ControlSpec{ControlKind::Text, "txtName", "New &Name", "", Place::NextRow, 32}.describedAs(
        "Name of the first copy, the number at its end counts on");
constexpr ControlSpec kIdentifier =
    ControlSpec{ControlKind::Text, "txtUI", "New Unit &Identifier", "", Place::NextRow, 8}.describedAs(
        "Modbus address of the first copy, which counts on");
constexpr ControlSpec kMove =
    ControlSpec{ControlKind::Text, "txtMove", "&Move addresses by", "", Place::NextRow, 8, KeyFilter::Numeric}
        .describedAs("Number to add to each address, once more with each copy");
constexpr ControlSpec kCopies = ControlSpec{ControlKind::Text, "txtCopies", "N&umber of copies", "",
                                            Place::NextRow,    8,           KeyFilter::Numeric}
                                    .describedAs("How many copies are made");
constexpr ControlSpec kOk =
    ControlSpec{ControlKind::Button, "cmdOk", "&Preview", "", Place::ButtonRow}.describedAs(
        "Shows what would be added");
constexpr ControlSpec kCancel =
    ControlSpec{ControlKind::Button, "cmdCancel", "Cance&l", "", Place::ButtonRow}.describedAs(
        "Closes the dialog without a change");

constexpr std::array kBranchControls{kName, kMove, kCopies, kOk, kCancel};
constexpr std::array kUnitControls{kName, kIdentifier, kMove, kCopies, kOk, kCancel};
constexpr FormSpec kOfBranch{"frmDuplicateBranch", "Duplicate Branch", kBranchControls, "cmdOk",
                             "cmdCancel",          "txtName"};
constexpr FormSpec kOfUnit{"frmDuplicateUnit", "Duplicate Unit", kUnitControls, "cmdOk",
                           "cmdCancel",        "txtName"};

}  // namespace

frmDuplicate::frmDuplicate(const DialogContext& context, TreeNode& node)
    : context_(context),
      node_(node),
      form_(context.forms.create(node.tag() == NodeTag::Plc ? kOfUnit : kOfBranch)) {
    connect<frmDuplicate>(*form_, context_.messages, *this,
                          {{"cmdOk", "cmdOk_Click", &frmDuplicate::cmdOk_Click},
                           {"cmdCancel", "cmdCancel_Click", &frmDuplicate::cmdCancel_Click}});
    reportErrors(context_.messages, "Form_Load", [&] { Form_Load(); });
}

std::optional<ChangeSet> frmDuplicate::show() {
    changes_.reset();
    form_->showModal();
    return std::move(changes_);
}

void frmDuplicate::Form_Load() {
    const bool unit = node_.tag() == NodeTag::Plc;
    form_->setText("txtName", freeName());
    if (unit) form_->setText("txtUI", freeIdentifier());
    form_->setText("txtMove", "0");
    form_->setText("txtCopies", "1");
}

std::string frmDuplicate::freeName() const {
    for (std::size_t steps = 1;; ++steps) {
        std::string name = nameBehind(node_.text(), steps);
        const bool unit = node_.tag() == NodeTag::Plc;
        if (context_.configuration.tree.find(unit ? Key(name) : makeKey(name, node_, true)) == nullptr)
            return name;
    }
}

std::string frmDuplicate::freeIdentifier() const {
    std::set<int> taken;
    for (const auto& [key, unit] : context_.configuration.units) taken.insert(unit->getUI());
    int identifier = context_.configuration.units.at(node_.key())->getUI();
    while (taken.contains(identifier) && identifier < kLastIdentifier) ++identifier;
    return std::to_string(identifier);
}

std::optional<Duplication> frmDuplicate::entered() const {
    constexpr double kMost = 1000;
    const auto move = wholeNumber(form_->text("txtMove"));
    const auto copies = wholeNumber(form_->text("txtCopies"));
    if (!move) {
        context_.messages.show("The number to move the addresses by is not valid.");
    } else if (!copies || *copies < 1 || *copies > kMost) {
        context_.messages.show("Number of copies must be between 1 and 1000.");
    } else {
        return Duplication{.name = form_->text("txtName"),
                           .copies = static_cast<std::size_t>(toInt32(*copies)),
                           .move = toInt32(*move),
                           .identifier = node_.tag() == NodeTag::Plc ? form_->text("txtUI") : ""};
    }
    return std::nullopt;
}

void frmDuplicate::cmdOk_Click() {
    const auto wanted = entered();
    if (!wanted) return;
    const PointerScope hourglass(context_.pointer, Pointer::Hourglass);
    ChangeSet changes = duplicate(context_.configuration, node_, *wanted);
    const IntendedChange& first = changes.changes().front();
    if (first.refused()) return void(context_.messages.show(first.refusal));
    changes_ = std::move(changes);
    form_->close();
}

void frmDuplicate::cmdCancel_Click() {
    form_->close();
}

}  // namespace trevandix
