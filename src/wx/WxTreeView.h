#pragma once

#include <wx/treectrl.h>

#include <chrono>
#include <deque>
#include <functional>
#include <unordered_map>
#include <vector>

#include "model/StructureTree.h"
#include "wx/WxIcons.h"
#include "wx/WxInputGate.h"

namespace trevandix {

/// The main window's tree, `TreeView1`. Mirrors a StructureTree and reports the user's actions.
class WxTreeView : public wxTreeCtrl, public TreeObserver {
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

    void nodeAdded(const TreeNode& node) override;
    void nodeRemoved(const TreeNode& node) override;
    void textChanged(const TreeNode& node) override;
    void nodeMoved(const TreeNode& node) override;
    void childrenSorted(const TreeNode& parent) override;
    void expansionChanged(const TreeNode& node) override;
    void madeVisible(const TreeNode& node) override;
    void selectionChanged(const TreeNode* node) override;
    void highlightChanged(const TreeNode* node) override;
    void cleared() override;
    void batchBegins() override;
    void batchEnds() override;

protected:
    int OnCompareItems(const wxTreeItemId& first, const wxTreeItemId& second) override;
    void OnInternalIdle() override;

private:
    enum class Where { AtItsPlace, AtTheEnd };

    void insert(const TreeNode& node, Where where);
    void insertRun(const TreeNode& node, const std::function<bool()>& timeIsOver);
    void insertSome(const std::function<bool()>& timeIsOver);
    void bring(const TreeNode& node);
    void forget(const TreeNode& node);
    void letGo(const TreeNode& top);
    void changeSome();
    void onSelecting(wxTreeEvent& event);
    void click(TreeNode& node);
    void onSelected(wxTreeEvent& event);
    void onActivated(wxTreeEvent& event);
    void onExpansion(wxTreeEvent& event, bool expanded);
    void onLeftDown(wxMouseEvent& event);
    void onLeftDoubleClick(wxMouseEvent& event);
    void doubleClick();
    void agree();
    TreeNode* nodeOf(const wxTreeItemId& item) const;
    wxTreeItemId itemOf(const TreeNode& node);

    StructureTree& tree_;
    WxInputGate& gate_;
    WxImageList images_{kTreeIconSize};
    TreeNode* clicked_ = nullptr;  // pending click
    const TreeNode* highlighted_ = nullptr;
    std::unordered_map<void*, int> places_;  // positions of items among their siblings, while sorting
    std::deque<wxTreeItemId> leaving_;       // items awaiting removal, children first
    std::vector<const TreeNode*> arriving_;  // nodes of which those beside and below may await insertion, too
    const TreeNode* visibleLater_ = nullptr;  // to scroll to when the batch ends
    int quiet_ = 0;                           // while positive, events of the control are not the user's
    int batches_ = 0;
    bool held_ = false;                            // true while a batch is open because items await change
    std::chrono::steady_clock::time_point drawn_;  // last redraw while held_
};

}  // namespace trevandix
