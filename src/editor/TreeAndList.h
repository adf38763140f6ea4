#pragma once

#include <cstddef>

#include "editor/EditorContext.h"

namespace trevandix {

/// The two views: what the list shows of a node, how it is sorted and displayed, what a click enables.
class TreeAndList {
public:
    explicit TreeAndList(const EditorContext& context) : context_(context) {}

    /// The select-node routine, the one way in which the list is rebuilt. The node becomes the selected one
    /// and its children are sorted from now on. Where the list showed the same node before, rows keep their
    /// selection and the scroll position.
    void TreeView1_NodeClick(TreeNode& node);
    /// Switches the commands for the selected node.
    void enableForSelected() const;
    /// Switches the commands for the list's current row.
    void ListView1_Click();
    /// Selects the tree node of the list's current row, if there is one.
    void selectNodeOfCurrentRow();
    /// Always ascending.
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
