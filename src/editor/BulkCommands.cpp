#include "editor/BulkCommands.h"

#include <algorithm>
#include <optional>
#include <string>

#include "dialogs/frmChangeItems.h"
#include "dialogs/frmDuplicate.h"
#include "dialogs/frmGoToAddress.h"
#include "dialogs/frmLineSettings.h"
#include "editor/WorkProgress.h"
#include "editor/frmChanges.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

bool hasItem(const TreeNode& top) {
    for (const TreeNode* node = &top; node != nullptr; node = nextBelow(*node, top))
        if (node->tag() == NodeTag::Item) return true;
    return false;
}

struct Wording {
    std::string_view title;  // of the dialog
    std::string_view one, many;
};

// Asks until the user confirms what is shown, or cancels; then makes it. Returns what was made.
template <typename Dialog>
std::optional<ChangeSet> carryOut(const EditorContext& context, Dialog& dialog, const Wording& wording) {
    const std::string caption = "Preview: " + std::string(wording.title);
    while (auto changes = dialog.show()) {
        changes->remarkFindings(ChangeWork(context.platform, "Checking Changes ....").progress());
        const ChangesToConfirm shown{caption, changes->changes(), wording.one, wording.many};
        if (!confirmChanges(context.platform.forms, shown)) continue;
        changes->apply(context.configuration,
                       ChangeWork(context.platform, "Applying Changes ....").progress());
        const std::string step(counted(changes->accepted(), wording.one, wording.many));
        const bool adds = changes->changes().back().adds;
        context.news.tell(step + (adds ? " added" : " changed") + ". Ctrl+Z undoes it");
        return changes;
    }
    return std::nullopt;
}

}  // namespace

DialogContext BulkCommands::dialogContext() const {
    Platform& platform = context_.platform;
    return {platform.forms, platform.messages, platform.pointer, context_.configuration};
}

std::vector<const TreeNode*> BulkCommands::chosen() const {
    std::vector<const TreeNode*> nodes;
    if (!context_.state().configurationOpen) return nodes;
    if (context_.platform.window.focusedView() == FocusedView::List) {
        for (const std::size_t row : context_.list.selectedRows()) {
            const TreeNode* node = context_.tree().find(context_.list.rows().at(row).key);
            if (node != nullptr) nodes.push_back(node);
        }
    }
    if (nodes.empty() && context_.tree().selected() != nullptr) nodes.push_back(context_.tree().selected());
    return nodes;
}

TreeNode* BulkCommands::current() const {
    const std::vector<const TreeNode*> nodes = chosen();
    return nodes.empty() ? nullptr : context_.tree().find(nodes.back()->key());
}

bool BulkCommands::hasUnits() const {
    return context_.state().configurationOpen && context_.configuration.units.size() > 0;
}

bool BulkCommands::hasLines() const {
    return hasUnits() && context_.state().interfaceKind == kRtu;
}

bool BulkCommands::duplicable(NodeTag tag) const {
    const TreeNode* node = current();
    if (node == nullptr || node->tag() != tag) return false;
    const TreeNode* unit = unitAround(context_.configuration, node);
    return unit != nullptr && (tag != NodeTag::Plc || unit == node);
}

std::vector<ContextEntry> BulkCommands::contextEntries() const {
    const bool items = std::ranges::any_of(chosen(), [](const TreeNode* node) { return hasItem(*node); });
    return {{"mnuChangeItems", "Change Items...", items},
            {"mnuDuplicate", "Duplicate Branch...", duplicable(NodeTag::Branch)},
            {"mnuDuplicate", "Duplicate Unit...", duplicable(NodeTag::Plc)},
            {"mnuLineSettings", "Line Settings...", hasLines()},
            {"mnuGoToAddress", "Go to Address...", hasUnits()}};
}

void BulkCommands::select(TreeNode& node) {
    context_.platform.window.focusTree();
    views_.select(node);
}

void BulkCommands::mnuChangeItems_Click() {
    context_.guarded("mnuChangeItems_Click", [&] {
        std::vector<const TreeNode*> items = itemsIn(chosen());
        if (items.empty()) return context_.news.tell("Nothing changed: no item is selected");
        frmChangeItems dialog(dialogContext(), std::move(items));
        const std::vector<const TreeNode*> rows = views_.nodesOfRows();
        if (carryOut(context_, dialog, {"Change Items", "item", "items"})) views_.showAgain(rows);
    });
}

void BulkCommands::mnuDuplicate_Click() {
    context_.guarded("mnuDuplicate_Click", [&] {
        const bool unit = duplicable(NodeTag::Plc);
        if (!unit && !duplicable(NodeTag::Branch))
            return context_.news.tell("Nothing added: neither a branch nor a unit is selected");
        const std::string_view title = unit ? "Duplicate Unit" : "Duplicate Branch";
        frmDuplicate dialog(dialogContext(), *current());
        const auto made = carryOut(context_, dialog, {title, "object", "objects"});
        if (!made) return;
        const auto first = std::ranges::find_if_not(made->changes(), &IntendedChange::refused);
        select(context_.tree().at(first->object));
    });
}

void BulkCommands::mnuLineSettings_Click() {
    context_.guarded("mnuLineSettings_Click", [&] {
        if (!hasLines()) return context_.news.tell("Nothing changed: there is no serial line");
        const TreeNode* unit = unitAround(context_.configuration, current());
        const auto record = unit == nullptr ? nullptr : context_.configuration.units.find(unit->key());
        frmLineSettings dialog(dialogContext(), record == nullptr ? "" : record->getCom());
        const std::vector<const TreeNode*> rows = views_.nodesOfRows();
        if (carryOut(context_, dialog, {"Line Settings", "unit", "units"})) views_.showAgain(rows);
    });
}

void BulkCommands::mnuGoToAddress_Click() {
    context_.guarded("mnuGoToAddress_Click", [&] {
        if (!hasUnits()) return context_.news.tell("Nothing found: there is no unit");
        const TreeNode* found = frmGoToAddress(dialogContext()).show(current());
        if (found != nullptr) select(context_.tree().at(found->key()));
    });
}

}  // namespace trevandix
