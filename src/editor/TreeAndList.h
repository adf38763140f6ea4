#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "editor/EditorContext.h"

namespace trevandix {

/// What the list shows for a node, how it is sorted and displayed, and which commands a click enables.
class TreeAndList {
public:
    explicit TreeAndList(const EditorContext& context) : context_(context) {}

    /// Selects the node and fills the list with its contents; the list is filled nowhere else. Sorts the
    /// children and keeps them sorted from then on. A list that showed the same node before keeps selection
    /// and scroll position.
    void TreeView1_NodeClick(TreeNode& node);
    /// The same, and makes the node visible.
    void select(TreeNode& node) {
        TreeView1_NodeClick(node);
        context_.tree().ensureVisible(node);
    }
    /// The nodes of the list's rows; nullptr for a row without one.
    std::vector<const TreeNode*> nodesOfRows() const;
    /// Shows the contents of the selected node, if any, after a change. `rows` are those from before the
    /// change. Selected rows stay selected, also when their nodes have new names.
    void showAgain(std::span<const TreeNode* const> rows);
    /// Enables the commands for the selected node.
    void enableForSelected() const;
    /// Enables the commands for the node of the list's current row.
    void ListView1_Click();
    /// Selects the tree node of the list's current row, if there is one.
    void selectNodeOfCurrentRow();
    /// Sorts by the column, always ascending.
    void ListView1_ColumnClick(std::size_t column);
    void setMode(ListMode mode) { context_.list.setMode(mode); }

private:
    void showContents(TreeNode& node);
    void enableFor(const TreeNode& node) const;
    void showUnits();
    void showDataTypes();
    void showUnit(const TreeNode& node);
    void showBranch(const TreeNode& node);
    void showItem(const TreeNode& node);
    void showRow(const TreeNode& item, bool index);
    void showColumns(NodeTag tag);

    const EditorContext& context_;
};

}  // namespace trevandix
