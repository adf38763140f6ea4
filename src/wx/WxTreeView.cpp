#include "wx/WxTreeView.h"

#include <wx/settings.h>

#include <utility>

#include "wx/WxBasics.h"
#include "wx/WxNative.h"

namespace trevandix {

wxIMPLEMENT_CLASS(WxTreeView, WxTreeItems);

namespace {

constexpr char kSpokenName[] = "Configuration";

// Between the colours of selected and normal items, so that text is readable on it.
wxColour dropColour() {
    constexpr double kSelectedShare = 0.35;
    const wxColour selected = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    const wxColour other = wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX);
    const auto blend = [](unsigned char top, unsigned char below) {
        return wxColour::AlphaBlend(top, below, kSelectedShare);
    };
    return {blend(selected.Red(), other.Red()), blend(selected.Green(), other.Green()),
            blend(selected.Blue(), other.Blue())};
}

}  // namespace

WxTreeView::WxTreeView(wxWindow* parent, StructureTree& tree, WxInputGate& gate)
    : WxTreeItems(parent, tree, gate) {
    setAccessibleName(*this, kSpokenName, "Units, branches and items as a tree");
    Bind(wxEVT_TREE_SEL_CHANGING, &WxTreeView::onSelecting, this);
    Bind(wxEVT_TREE_SEL_CHANGED, &WxTreeView::onSelected, this);
    Bind(wxEVT_TREE_ITEM_ACTIVATED, &WxTreeView::onActivated, this);
    Bind(wxEVT_TREE_ITEM_EXPANDED, [this](wxTreeEvent& event) { onExpansion(event, true); });
    Bind(wxEVT_TREE_ITEM_COLLAPSED, [this](wxTreeEvent& event) { onExpansion(event, false); });
    Bind(wxEVT_LEFT_DOWN, &WxTreeView::onLeftDown, this);
    Bind(wxEVT_LEFT_DCLICK, &WxTreeView::onLeftDoubleClick, this);
    if (tree_.root() != nullptr) nodeAdded(*tree_.root());
    tree_.setObserver(this);
}

WxTreeView::~WxTreeView() {
    tree_.setObserver(nullptr);
    ++quiet_;
    DeleteAllItems();
}

TreeNode* WxTreeView::nodeAt(const wxPoint& point) const {
    int flags = 0;
    return nodeOf(HitTest(point, flags));
}

TreeNode* WxTreeView::selectedNode() const {
    return nodeOf(GetSelection());
}

wxPoint WxTreeView::menuPlace() const {
    wxRect line;
    const wxTreeItemId item = GetSelection();
    if (item.IsOk() && GetBoundingRect(item, line, true) && GetClientRect().Intersects(line))
        return line.GetBottomLeft();
    return {};
}

// On Windows, expanding the nodes has scrolled the control to the last one.
void WxTreeView::showSelection() {
    if (const TreeNode* node = selectedNode()) madeVisible(*node);
}

void WxTreeView::pick(const TreeNode& node) {
    if (selectedNode() == &node) return;
    SelectItem(itemOf(node));
}

void WxTreeView::forget(const TreeNode& node) {
    if (liesIn(clicked_, node)) clicked_ = nullptr;
    if (liesIn(highlighted_, node)) highlighted_ = nullptr;
    if (liesIn(visibleLater_, node)) visibleLater_ = nullptr;
}

void WxTreeView::nodeRemoved(const TreeNode& node) {
    forget(node);
    WxTreeItems::nodeRemoved(node);
}

void WxTreeView::cleared() {
    clicked_ = nullptr;
    highlighted_ = visibleLater_ = nullptr;
    WxTreeItems::cleared();
}

void WxTreeView::batchEnds() {
    WxTreeItems::batchEnds();
    if (!inBatch() && visibleLater_ != nullptr) madeVisible(*std::exchange(visibleLater_, nullptr));
}

void WxTreeView::expansionChanged(const TreeNode& node) {
    if (isAwaited(node)) return;
    const ScopedIncrement quiet(quiet_);
    const wxTreeItemId item = itemOf(node);
    if (!node.expanded()) {
        Collapse(item);
    } else if (node.childCount() > 0 && !IsExpanded(item)) {
        Expand(item);
    }
}

void WxTreeView::madeVisible(const TreeNode& node) {
    if (inBatch()) {
        visibleLater_ = &node;
        return;
    }
    // A control that was never shown has no size and would scroll sideways.
    if (!IsShownOnScreen()) return;
    const ScopedIncrement quiet(quiet_);
    EnsureVisible(itemOf(node));
}

void WxTreeView::selectionChanged(const TreeNode* node) {
    const ScopedIncrement quiet(quiet_);
    clicked_ = nullptr;
    if (node == nullptr) {
        UnselectAll();
        return;
    }
    const wxTreeItemId item = itemOf(*node);
    if (GetSelection() == item && IsVisible(item)) return;  // the user's click selected it
    SelectItem(item);
    madeVisible(*node);
}

// Uses the background colour: many systems draw the control's own drop highlight like the selection.
void WxTreeView::highlightChanged(const TreeNode* node) {
    if (highlighted_ != nullptr) SetItemBackgroundColour(itemOf(*highlighted_), wxNullColour);
    if (node != nullptr) SetItemBackgroundColour(itemOf(*node), dropColour());
    highlighted_ = node;
}

void WxTreeView::OnInternalIdle() {
    WxTreeItems::OnInternalIdle();
    agree();
}

// Selects the tree's selected node again when the control has changed its selection by itself. A pending
// click is going to change the selected node, so it is left alone.
void WxTreeView::agree() {
    if (quiet_ > 0 || inBatch() || clicked_ != nullptr || selectedNode() == tree_.selected()) return;
    selectionChanged(tree_.selected());
}

void WxTreeView::click(TreeNode& node) {
    clicked_ = &node;
    gate_.post(WxInputGate::Kind::TreeClick, [this](MainWindowEvents& events) {
        if (TreeNode* clicked = std::exchange(clicked_, nullptr)) events.TreeView1_NodeClick(*clicked);
    });
}

void WxTreeView::onSelecting(wxTreeEvent& event) {
    if (event.GetItem().IsOk() && nodeOf(event.GetItem()) == nullptr) event.Veto();
}

void WxTreeView::onSelected(wxTreeEvent& event) {
#ifdef __WXGTK__
    // A tree drawn by wx shows screen readers no items, so its own name tells the selected item.
    if (event.GetItem().IsOk()) setAccessibleName(*this, kSpokenName + (": " + GetItemText(event.GetItem())));
#endif
    if (quiet_ > 0) return;
    if (TreeNode* node = nodeOf(event.GetItem())) click(*node);
}

// Does not skip the event: the control would expand or collapse the node.
void WxTreeView::onActivated(wxTreeEvent& event) {
    if (nodeOf(event.GetItem()) == nullptr) return;
    doubleClick();
}

void WxTreeView::doubleClick() {
    gate_.post(WxInputGate::Kind::Single, [](MainWindowEvents& events) { events.TreeView1_DblClick(); });
}

void WxTreeView::onExpansion(wxTreeEvent& event, bool expanded) {
    TreeNode* node = nodeOf(event.GetItem());
    if (node == nullptr || node->expanded() == expanded) return;
    if (quiet_ > 0) {
        tree_.setExpanded(*node, expanded);
    } else {
        gate_.run(
            [node, expanded](MainWindowEvents& events) { events.treeExpansionChanged(*node, expanded); });
    }
}

void WxTreeView::onLeftDown(wxMouseEvent& event) {
    event.Skip();
    int flags = 0;
    const wxTreeItemId item = HitTest(event.GetPosition(), flags);
    const bool onItem = (flags & (wxTREE_HITTEST_ONITEMICON | wxTREE_HITTEST_ONITEMLABEL)) != 0;
    if (!onItem || item != GetSelection()) return;
    if (TreeNode* node = nodeOf(item)) click(*node);
}

// A double click beside all nodes acts on the selected node; the control reports only double clicks on nodes.
void WxTreeView::onLeftDoubleClick(wxMouseEvent& event) {
    event.Skip();
    int flags = 0;
    [[maybe_unused]] const wxTreeItemId item = HitTest(event.GetPosition(), flags);
#ifdef __WXMSW__
    const bool reported = (flags & (wxTREE_HITTEST_ONITEM | wxTREE_HITTEST_ONITEMBUTTON)) != 0;
#else
    const bool reported = item.IsOk();
#endif
    if (!reported) doubleClick();
}

}  // namespace trevandix
