#include "editor/ClipboardEditing.h"

#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

namespace {
constexpr std::string_view kDefaultName = "New_Item";
constexpr std::string_view kCopiedName = "Copied_Item";
constexpr std::string_view kChangeName = "Please change Item name (do not use default name) before copying";
}  // namespace

void ClipboardEditing::mnuCopy_Click() {
    context_.guarded("mnuCopy_Click", [&] {
        context_.configuration.resetPasteCounter();
        const FocusedView focus = context_.platform.window.focusedView();
        const TreeNode* node = context_.tree().selected();
        if (focus == FocusedView::List) {
            copyRows();
        } else if (focus == FocusedView::Tree && node != nullptr) {
            copyNode(*node);
        }
    });
}

void ClipboardEditing::copyRows() {
    std::size_t slot = 0;
    for (const std::size_t index : context_.list.selectedRows()) {
        const ListRow& row = context_.list.rows().at(index);
        if (row.text.starts_with(kDefaultName) || row.text.starts_with(kCopiedName)) return say(kChangeName);
        context_.configuration.setCopySlot(++slot, row.key);
    }
    if (slot > 0) context_.news.tell(counted(slot, "item", "items") + " copied");
}

void ClipboardEditing::copyNode(const TreeNode& node) {
    if (node.tag() == NodeTag::Branch) return say("Please use Drag&Drop to copy and paste branches");
    if (node.tag() != NodeTag::Item) return;
    if (node.text().starts_with(kDefaultName)) return say(kChangeName);
    context_.configuration.setCopySlot(1, node.key());
    context_.news.tell("1 item copied");
}

void ClipboardEditing::mnuCut_Click() {
    context_.guarded("mnuCut_Click", [&] {
        mnuCopy_Click();
        mnuDelete_Click();
    });
}

void ClipboardEditing::mnuPaste_Click() {
    context_.guarded("mnuPaste_Click", [&] {
        try {
            paste();
        } catch (const RuntimeError& error) {
            if (error.number() == ErrorNumber::SubscriptOutOfRange) return say("No items to paste.");
            if (error.number() == ErrorNumber::ObjectNotSet)
                return say("Copied object can not be added here ");
            throw;
        }
    });
}

void ClipboardEditing::paste() {
    if (context_.state().copyBuffer.empty()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    TreeNode* branch = context_.tree().selected();
    if (branch == nullptr || branch->tag() != NodeTag::Branch) return;
    pasteInto(*branch);
    context_.configuration.raisePasteCounter();
    views_.TreeView1_NodeClick(*branch);
}

void ClipboardEditing::pasteInto(TreeNode& branch) {
    const EditingState& state = context_.state();
    const StructureTree::Batch batch(context_.tree());
    for (std::size_t slot = 1; slot < state.copyBuffer.size(); ++slot) {
        const auto& source = state.copyBuffer[slot];
        if (source == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
        if (source->sName().empty()) continue;
        clsItem copy;
        copy.SetByCopy(*source, branch.key(), state.pasteCounter);
        context_.tree().ensureVisible(context_.configuration.addItem(std::move(copy), branch, Image::None));
    }
}

void ClipboardEditing::mnuDelete_Click() {
    context_.guarded("mnuDelete_Click", [&] {
        const FocusedView focus = context_.platform.window.focusedView();
        TreeNode* node = context_.tree().selected();
        if (node == nullptr) return;
        if (focus == FocusedView::List && node->tag() == NodeTag::Branch) {
            deleteRows(*node);
        } else if (focus == FocusedView::Tree) {
            deleteNode(*node);
        }
    });
}

void ClipboardEditing::deleteRows(TreeNode& branch) {
    if (!confirms("Are you sure you want to delete the selected items ?")) return;
    {
        const StructureTree::Batch batch(context_.tree());
        for (const std::size_t index : context_.list.selectedRows()) {
            context_.configuration.removeItem(context_.list.rows().at(index).key);
        }
    }
    views_.TreeView1_NodeClick(branch);
}

void ClipboardEditing::deleteNode(TreeNode& node) {
    switch (node.tag()) {
        case NodeTag::Plc:
            return deleteUnit(node);
        case NodeTag::Branch:
            if (confirms("Are you sure you want to delete " + node.text() + " and all its items?")) {
                const StructureTree::Batch batch(context_.tree());
                context_.configuration.removeBranch(node);
                showSelected();
            }
            return;
        case NodeTag::Item:
            return deleteItem(node);
        case NodeTag::Config:
        case NodeTag::ModBus:
        case NodeTag::DataType:  // Delete is enabled but does nothing: items may still use the type
            return;
    }
}

void ClipboardEditing::deleteUnit(TreeNode& node) {
    if (!confirms("Are you sure you want to delete " + node.text() + "?")) return;
    if (node.firstChild() != nullptr) return say("This unit is not empty");
    context_.configuration.removeUnit(node);
    showSelected();
}

// Fills the list again, which may still show the contents of the removed node.
void ClipboardEditing::showSelected() {
    views_.TreeView1_NodeClick(*context_.tree().selected());
}

void ClipboardEditing::deleteItem(TreeNode& node) {
    if (confirms("Are you sure you want to delete " + node.text() + " ?")) {
        context_.configuration.removeItem(node.key());
    }
    const TreeNode* selected = context_.tree().selected();
    if (selected != nullptr && selected->parent() != nullptr) views_.TreeView1_NodeClick(*selected->parent());
}

}  // namespace trevandix
