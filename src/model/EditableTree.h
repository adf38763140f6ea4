#pragma once

#include "model/StructureTree.h"

namespace trevandix {

/// The tree as its owner has it: its nodes can be added, removed and given other keys and texts.
class EditableTree : public StructureTree {
public:
    EditableTree() = default;
    ~EditableTree();

    /// Adds the first node, which has no key. Errors: InvalidCall when there is one already.
    TreeNode& addRoot(std::string_view text, const NodeLook& look);
    /// Adds a child, at the end or at its alphabetical place when the parent is sorted.
    /// Errors: KeyNotUnique; the tree is then unchanged.
    TreeNode& addChild(TreeNode& parent, const Key& key, std::string_view text, const NodeLook& look);
    /// Removes the node with everything below it. When the selected node goes with it, the selection passes
    /// to its next sibling, else its previous one, else its parent.
    void remove(TreeNode& node);
    void clear();

    void setText(TreeNode& node, std::string_view text);
    /// Errors: KeyNotUnique; the node then keeps its key.
    void setKey(TreeNode& node, const Key& key);

private:
    TreeNode* create(const Key& key, std::string_view text, const NodeLook& look);
    void forget(TreeNode& node);
    static void destroy(TreeNode& top);
    static void unlink(TreeNode& node);
    static TreeNode* sortedPlace(TreeNode& parent, TreeNode& node);
    static void forgetInSortedOrder(TreeNode& node);
};

}  // namespace trevandix
