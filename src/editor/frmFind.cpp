#include "editor/frmFind.h"

#include <array>
#include <string>

#include "model/Numbers.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::array kControls{
    ControlSpec{ControlKind::Text, "txtFind", "Type the name of the item to find"}.describedAs(
        "Beginning of the name, capitals do not matter"),
    ControlSpec{ControlKind::Button, "cmdFind", "&Find", "", Place::ButtonRow}.describedAs(
        "Selects the first match"),
    ControlSpec{ControlKind::Button, "cmdNext", "Find &Next", "", Place::ButtonRow}.describedAs(
        "Selects the next match"),
    ControlSpec{ControlKind::Button, "cmdCancel", "E&xit", "", Place::ButtonRow}.describedAs(
        "Closes the window"),
};
constexpr FormSpec kForm{"frmFind", "Find Item", kControls, "cmdFind", "cmdCancel", "txtFind", true};

/// Whether the text begins with `upper` (in capitals), ignoring case. Allocates nothing, because it runs for
/// every node.
bool beginsWith(std::string_view text, std::u32string_view upper) {
    std::size_t at = 0;
    for (const char32_t wanted : upper) {
        if (at >= text.size() || upperCased(nextCodePoint(text, at)) != wanted) return false;
    }
    return true;
}

}  // namespace

void frmFind::mnuFind_Click() {
    context_.guarded("mnuFind_Click", [&] {
        if (!open_) Form_Load();
        form_->showModeless();
    });
}

void frmFind::Form_Load() {
    form_ = context_.platform.forms.create(kForm);
    matchCount_ = 0;
    open_ = true;
    form_->onActivated([this] { form_->setFocus("txtFind"); });
    form_->onClosed([this] { open_ = false; });
    form_->on("cmdFind", [this] { cmdFind_Click(); });
    form_->on("cmdNext", [this] { cmdNext_Click(); });
    form_->on("cmdCancel", [this] { form_->close(); });
}

void frmFind::cmdFind_Click() {
    context_.guarded("cmdFind_Click", [&] { selectMatch(0); });
}

void frmFind::cmdNext_Click() {
    context_.guarded("cmdNext_Click", [&] {
        matchCount_ = raised(matchCount_);
        selectMatch(static_cast<std::size_t>(matchCount_));
    });
}

void frmFind::findNextByKey() {
    if (open_) cmdNext_Click();
}

// Selects the next match after skipping `passed` others.
void frmFind::selectMatch(std::size_t passed) {
    const std::string typed = form_->text("txtFind");
    std::u32string upper;
    for (std::size_t at = 0; at < typed.size();) upper += upperCased(nextCodePoint(typed, at));
    if (upper.empty()) return;
    context_.news.tell(passed == 0 ? "No match" : "No further match");
    StructureTree& tree = context_.tree();
    for (TreeNode* node = tree.firstAdded(); node != nullptr; node = StructureTree::nextAdded(*node)) {
        if (!beginsWith(node->text(), upper) || passed-- > 0) continue;
        context_.platform.window.focusTree();
        tree.ensureVisible(*node);
        tree.select(node);
        context_.news.tell({});
        break;
    }
    context_.news.update();
}

void frmFind::unload() {
    if (open_) form_->close();
    form_.reset();
}

}  // namespace trevandix
