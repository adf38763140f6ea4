#include "editor/DragAndDrop.h"

#include "platform/RuntimeError.h"

namespace trevandix {

bool DragAndDrop::TreeView1_MouseDown(TreeNode* node, ShiftState shift) {
    mSourceNode = node != nullptr ? std::optional(node->key()) : std::nullopt;
    if (node != nullptr) mShiftState = shift;
    return node != nullptr;
}

// Clears the highlight that a refused drop has left: the next drop must not land there.
DropEffect DragAndDrop::TreeView1_OLEStartDrag() {
    context_.tree().setDropHighlight(nullptr);
    context_.platform.pointer.set(Pointer::Icon);
    return effect();
}

void DragAndDrop::TreeView1_OLEDragOver(TreeNode* node) {
    context_.platform.pointer.set(Pointer::Icon);
    context_.tree().setDropHighlight(node);
}

TreeNode* DragAndDrop::source() const {
    if (!mSourceNode) return nullptr;
    return mSourceNode->empty() ? context_.tree().root() : context_.tree().find(*mSourceNode);
}

DragAndDrop::Verdict DragAndDrop::judge(const TreeNode& source, const TreeNode& target) {
    if (target.tag() == NodeTag::Item) return Verdict::Refuse;
    if (source.parent() == nullptr || source.parent()->key() == target.key()) return Verdict::Ignore;
    return liesIn(&target, source) ? Verdict::Refuse : Verdict::Accept;
}

bool DragAndDrop::dropAllowed(const TreeNode* node) const {
    const TreeNode* dragged = source();
    if (dragged == nullptr || node == nullptr || judge(*dragged, *node) != Verdict::Accept) return false;
    return context_.tree().find(Key(node->key(), dragged->text())) == nullptr;
}

void DragAndDrop::TreeView1_OLEDragDrop() {
    TreeNode* target = context_.tree().dropHighlight();
    try {
        if (target == nullptr || drop(*target)) endFeedback();
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::KeyNotUnique)
            return;  // keeps what was done so far and shows no message
        context_.platform.messages.show("Name already in use at this level. Move not allowed", Buttons::Ok,
                                        Icon::Critical);
    }
}

bool DragAndDrop::drop(TreeNode& target) {
    TreeNode* dragged = source();
    if (dragged == nullptr) return false;
    const Verdict verdict = judge(*dragged, target);
    if (verdict == Verdict::Refuse) {
        context_.platform.messages.show("Unable to drag nodes here", Buttons::Ok, Icon::Exclamation);
    }
    if (verdict != Verdict::Accept) return false;
    const StructureTree::Batch batch(context_.tree());
    TreeNode& placed = context_.configuration.copySubtree(*dragged, target);
    context_.tree().setExpanded(placed, true);
    context_.tree().ensureVisible(placed);
    // Removes the source only after all of it has been copied: if a name inside is taken, copySubtree throws.
    if (effect() == DropEffect::Move) context_.configuration.removeMoved(*dragged);
    return true;
}

void DragAndDrop::dragCancelled() {
    endFeedback();
}

void DragAndDrop::endFeedback() {
    context_.tree().setDropHighlight(nullptr);
    context_.platform.pointer.set(Pointer::Default);
}

}  // namespace trevandix
