#pragma once

#include <memory>

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
    /// A node outside the tree, with everything below it, or none.
    struct Destroy {
        void operator()(TreeNode* top) const;
    };
    using Detached = std::unique_ptr<TreeNode, Destroy>;
    /// Takes a node, which is not the first one, out of the tree with everything below it. When the selected
    /// node goes with it, the selection passes to its next sibling, else its previous one, else its parent.
    Detached detach(TreeNode& node);
    /// Puts a node back where it was detached, with everything below it. All changes since then have been
    /// taken back, apart from the sorting of siblings: below a parent that was sorted meanwhile, the node
    /// goes to its sorted place, and among equal texts before `place`, which is what `placeOf` returned.
    TreeNode& attach(Detached node, TreeNode* place);
    /// The sibling before which the node has to stand for as long as it has its text; nullptr when it stands
    /// behind all of equal text.
    static TreeNode* placeOf(const TreeNode& node);
    void clear();

    /// Below a sorted parent the node moves to its alphabetical place: before `place`, or behind all of equal
    /// text.
    void setText(TreeNode& node, std::string_view text, TreeNode* place = nullptr);
    /// Errors: KeyNotUnique; the node then keeps its key.
    void setKey(TreeNode& node, const Key& key);

private:
    TreeNode* create(const Key& key, std::string_view text, const NodeLook& look);
    void forget(TreeNode& node);
    void enterAdded(TreeNode& node);
    static void unlink(TreeNode& node);
    static TreeNode* sortedPlace(TreeNode& parent, TreeNode& node, TreeNode* before = nullptr);
    static void forgetInSortedOrder(TreeNode& node);
};

}  // namespace trevandix
