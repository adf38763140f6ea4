#pragma once

#include <optional>

#include "editor/EditorContext.h"

namespace trevandix {

/// Moves and copies nodes that the user drags with the right mouse button. A copy shares its records with the
/// source: editing one edits both. Changes neither the list nor the saved flag.
class DragAndDrop {
public:
    explicit DragAndDrop(const EditorContext& context) : context_(context) {}

    /// Remembers the node and the modifier keys. True when there is a node to drag.
    bool TreeView1_MouseDown(TreeNode* node, ShiftState shift);
    /// Copy if the Control key was down when the button was pressed, else Move.
    DropEffect TreeView1_OLEStartDrag();
    void TreeView1_OLEDragOver(TreeNode* node);
    bool dropAllowed(const TreeNode* node) const;
    /// Drops on the highlighted node. Resets highlight and pointer unless the drop is refused.
    void TreeView1_OLEDragDrop();
    void dragCancelled();

private:
    enum class Verdict { Accept, Refuse, Ignore };
    static Verdict judge(const TreeNode& source, const TreeNode& target);
    DropEffect effect() const { return mShiftState.control ? DropEffect::Copy : DropEffect::Move; }
    TreeNode* source() const;
    bool drop(TreeNode& target);
    void endFeedback();

    const EditorContext& context_;
    /// Key of the dragged node; empty for the first node. A pointer could outlive the node.
    std::optional<Key> mSourceNode;
    ShiftState mShiftState;
};

}  // namespace trevandix
