#pragma once

#include <optional>

#include "editor/EditorContext.h"

namespace trevandix {

/// Moving and copying nodes by dragging them with the right mouse button. A copy shares its records with the
/// source: editing either edits both. The list is not rebuilt and the saved flag stays.
class DragAndDrop {
public:
    explicit DragAndDrop(const EditorContext& context) : context_(context) {}

    /// Remembers node and keys; True when there is a node to drag.
    bool TreeView1_MouseDown(TreeNode* node, ShiftState shift);
    /// Copy when the control key was down with the mouse button, else move.
    DropEffect TreeView1_OLEStartDrag();
    void TreeView1_OLEDragOver(TreeNode* node);
    bool dropAllowed(const TreeNode* node) const;
    /// Drops on the highlighted node. Highlight and pointer are taken back only when the drop succeeds.
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
    /// The dragged node by its key (the first node's is empty), so that it cannot outlive its node.
    std::optional<Key> mSourceNode;
    ShiftState mShiftState;
};

}  // namespace trevandix
