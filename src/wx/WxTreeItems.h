#pragma once

#include <wx/timer.h>
#include <wx/treectrl.h>

#include <chrono>
#include <deque>
#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "model/StructureTree.h"
#include "wx/WxIcons.h"
#include "wx/WxInputGate.h"

namespace trevandix {

/// The items of the main window's tree: one for each node of a StructureTree. As inserting, removing or
/// renaming an item may take tens of microseconds (under Wine), many of them change in slices, between which
/// the window answers. So nodes may await insertion, items a new text or place, and items without a node
/// removal.
class WxTreeItems : public wxTreeCtrl, public TreeObserver {
    wxDECLARE_CLASS(WxTreeItems);

public:
    void nodeAdded(const TreeNode& node) override;
    void nodeRemoved(const TreeNode& node) override;
    void textChanged(const TreeNode& node) override;
    void nodeMoved(const TreeNode& node) override;
    void childrenSorted(const TreeNode& parent) override;
    void cleared() override;
    void batchBegins() override;
    void batchEnds() override;

protected:
    /// `tree` and `gate` must outlive the control.
    WxTreeItems(wxWindow* parent, StructureTree& tree, WxInputGate& gate);

    /// nullptr for an item awaiting removal.
    TreeNode* nodeOf(const wxTreeItemId& item) const;
    /// Inserts a node awaiting insertion, and those above it, now.
    wxTreeItemId itemOf(const TreeNode& node);
    static bool isAwaited(const TreeNode& node) { return node.viewItem == nullptr; }
    bool inBatch() const { return batches_ > 0; }

    int OnCompareItems(const wxTreeItemId& first, const wxTreeItemId& second) override;
    void OnInternalIdle() override;

    StructureTree& tree_;
    WxInputGate& gate_;
    int quiet_ = 0;  ///< while positive, events of the control are not the user's

private:
    enum class Where { AtItsPlace, AtTheEnd };

    void insert(const TreeNode& node, Where where);
    void insertRun(const TreeNode& node, const std::function<bool()>& timeIsOver);
    void insertSome(const std::function<bool()>& timeIsOver);
    void bring(const TreeNode& node);
    void letGo(const TreeNode& top);
    void sort(const TreeNode& parent);
    bool changesWait() const;
    void changeFor(std::chrono::milliseconds time);
    void changeSome();
    void changeMore();
    /// A command goes first.
    bool mayChange() const { return held_ && !gate_.pumping(); }

    WxImageList images_{kTreeIconSize};
    std::unordered_map<void*, int> places_;  // positions of items among their siblings, while sorting
    std::deque<wxTreeItemId> leaving_;       // items awaiting removal, children first
    std::vector<const TreeNode*> arriving_;  // nodes of which those beside and below may await insertion, too
    std::unordered_set<const TreeNode*> renamed_;   // nodes whose items await their new text
    std::unordered_set<const TreeNode*> unsorted_;  // parents of nodes whose items await their new place
    int batches_ = 0;
    bool held_ = false;  // true while a batch is open because items await change
    std::chrono::steady_clock::time_point heldSince_;
    std::chrono::steady_clock::time_point drawn_;  // last redraw while held_
    wxTimer outsideLoop_;                          // runs while held_
};

}  // namespace trevandix
