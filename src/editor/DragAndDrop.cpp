#include "editor/DragAndDrop.h"

#include <vector>

#include "model/NodeEditing.h"
#include "platform/RuntimeError.h"

namespace trevandix {

bool DragAndDrop::TreeView1_MouseDown(TreeNode* node, ShiftState shift) {
    mSourceNode = node != nullptr ? std::optional(node->key()) : std::nullopt;
    if (node != nullptr) mShiftState = shift;
    return node != nullptr;
}

// A refused drop leaves its highlight; nothing may be dropped on it before the pointer has been there again.
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
            return;  // what was done so far stays, without a word
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
    TreeNode& placed = recreate(context_.configuration, *dragged, target);
    if (dragged->tag() == NodeTag::Branch) CopySubTree(*dragged, placed);
    context_.tree().setExpanded(placed, true);
    context_.tree().ensureVisible(placed);
    if (effect() == DropEffect::Move) removeSource(*dragged);
    return true;
}

// Only when all of it stands at its new place: a name that is taken deep inside must leave no node without
// its record.
void DragAndDrop::removeSource(TreeNode& dragged) {
    Configuration& configuration = context_.configuration;
    if (dragged.tag() == NodeTag::Item) configuration.items.remove(dragged.key());
    if (dragged.tag() == NodeTag::Branch) {
        RemoveBranch(configuration, dragged);
        configuration.branches.remove(dragged.key());
    }
    configuration.tree.remove(dragged);
}

// Depth first like a recursion, but branches may be nested as deeply as a file likes.
void DragAndDrop::CopySubTree(const TreeNode& nodSource, TreeNode& nodDest) {
    struct Level {
        const TreeNode* next;
        TreeNode* destination;
    };
    std::vector<Level> levels{{nodSource.firstChild(), &nodDest}};
    while (!levels.empty()) {
        const auto [child, destination] = levels.back();
        if (child == nullptr) {
            levels.pop_back();
            continue;
        }
        levels.back().next = child->nextSibling();
        TreeNode& placed = recreate(context_.configuration, *child, *destination);
        if (child->tag() == NodeTag::Branch) levels.push_back({child->firstChild(), &placed});
    }
}

void DragAndDrop::dragCancelled() {
    endFeedback();
}

void DragAndDrop::endFeedback() {
    context_.tree().setDropHighlight(nullptr);
    context_.platform.pointer.set(Pointer::Default);
}

}  // namespace trevandix
