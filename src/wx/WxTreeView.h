#pragma once

#include "model/StructureTree.h"
#include "wx/WxTreeItems.h"

namespace trevandix {

/// The main window's tree, `TreeView1`: selection, expansion and highlight of its items, and the user's
/// actions.
class WxTreeView : public WxTreeItems {
    wxDECLARE_CLASS(WxTreeView);

public:
    /// `tree` and `gate` must outlive the view.
    WxTreeView(wxWindow* parent, StructureTree& tree, WxInputGate& gate);
    ~WxTreeView() override;

    /// The node in the line at `point` (client coordinates); nullptr for none.
    TreeNode* nodeAt(const wxPoint& point) const;
    TreeNode* selectedNode() const;
    bool showsExpanded(const TreeNode& node) { return IsExpanded(itemOf(node)); }
    /// Scrolls to the selected node.
    void showSelection();
    /// Selects a node as a click does.
    void pick(const TreeNode& node);
    /// Where to open a context menu requested by keyboard, in client coordinates.
    wxPoint menuPlace() const;

    void nodeRemoved(const TreeNode& node) override;
    void expansionChanged(const TreeNode& node) override;
    void madeVisible(const TreeNode& node) override;
    void selectionChanged(const TreeNode* node) override;
    void highlightChanged(const TreeNode* node) override;
    void cleared() override;
    void batchEnds() override;

protected:
    void OnInternalIdle() override;

private:
    void forget(const TreeNode& node);
    void onSelecting(wxTreeEvent& event);
    void click(TreeNode& node);
    void onSelected(wxTreeEvent& event);
    void onActivated(wxTreeEvent& event);
    void onExpansion(wxTreeEvent& event, bool expanded);
    void onLeftDown(wxMouseEvent& event);
    void onLeftDoubleClick(wxMouseEvent& event);
    void doubleClick();
    void agree();

    TreeNode* clicked_ = nullptr;  // pending click
    const TreeNode* highlighted_ = nullptr;
    const TreeNode* visibleLater_ = nullptr;  // to scroll to when the batch ends
};

}  // namespace trevandix
