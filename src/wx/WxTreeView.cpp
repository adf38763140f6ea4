#include "wx/WxTreeView.h"

#include <wx/app.h>
#include <wx/settings.h>
#include <wx/wupdlock.h>

#include <chrono>
#include <utility>
#include <vector>

#include "wx/WxBasics.h"
#include "wx/WxNative.h"

namespace trevandix {

wxIMPLEMENT_CLASS(WxTreeView, wxTreeCtrl);

namespace {

constexpr char kSpokenName[] = "Configuration";

// Inserting or removing an item may take tens of microseconds (under Wine), so it is done in slices.
constexpr std::chrono::milliseconds kChangingAtATime{10};
constexpr std::chrono::milliseconds kBetweenDrawings{400};

class NodeData : public wxTreeItemData {
public:
    explicit NodeData(const TreeNode& shown) : node(const_cast<TreeNode*>(&shown)) {}
    TreeNode* node;  // nullptr for an item awaiting removal
};

// nullptr for a node awaiting insertion.
NodeData* dataOf(const TreeNode& node) {
    return static_cast<NodeData*>(node.viewItem);
}

// The node if it awaits insertion.
const TreeNode* awaiting(const TreeNode* node) {
    return node != nullptr && dataOf(*node) == nullptr ? node : nullptr;
}

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
    : wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_SINGLE, wxDefaultValidator, "TreeView1"),
      tree_(tree),
      gate_(gate) {
    for (const Image image : {Image::Config, Image::Main, Image::Item, Image::Plc, Image::Branch}) {
        images_.indexOf(imageName(image));
    }
    SetImages(images_.bundles());
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

TreeNode* WxTreeView::nodeOf(const wxTreeItemId& item) const {
    return item.IsOk() ? static_cast<NodeData*>(GetItemData(item))->node : nullptr;
}

wxTreeItemId WxTreeView::itemOf(const TreeNode& node) {
    bring(node);
    return dataOf(node)->GetId();
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

void WxTreeView::insert(const TreeNode& node, Where where) {
    const wxString text = toWx(node.text());
    const int image = images_.indexOf(imageName(node.look().image));
    const int selected = images_.indexOf(imageName(node.look().selectedImage));
    auto* data = new NodeData(node);
    wxTreeItemId item;
    if (node.parent() == nullptr) {
        item = AddRoot(text, image, selected, data);
    } else if (const wxTreeItemId parent = itemOf(*node.parent());
               where == Where::AtTheEnd || node.nextSibling() == nullptr) {
        item = AppendItem(parent, text, image, selected, data);
    } else if (node.previousSibling() == nullptr) {
        item = PrependItem(parent, text, image, selected, data);
    } else {
        item = InsertItem(parent, itemOf(*node.previousSibling()), text, image, selected, data);
    }
    node.viewItem = data;
    // The control drops the expanded state of an item without children, so it is restored with the first
    // child.
    const TreeNode* parent = node.previousSibling() == nullptr ? node.parent() : nullptr;
    if (parent != nullptr && parent->expanded() && !IsExpanded(itemOf(*parent))) Expand(itemOf(*parent));
}

// Inserts the node and those beside it that await insertion, from the first to the last, because the Windows
// control is slow to find the place of an item in between.
void WxTreeView::insertRun(const TreeNode& node, const std::function<bool()>& timeIsOver) {
    const TreeNode* first = &node;
    const TreeNode* end = &node;
    while (const TreeNode* before = awaiting(first->previousSibling())) first = before;
    while (awaiting(end) != nullptr) end = end->nextSibling();
    const Where where = end == nullptr ? Where::AtTheEnd : Where::AtItsPlace;
    for (; first != end; first = first->nextSibling()) {
        if (timeIsOver()) return arriving_.push_back(first);
        insert(*first, where);
        if (first->firstChild() != nullptr) arriving_.push_back(first->firstChild());
    }
}

// Inserts a node awaiting insertion, and those above it, now.
void WxTreeView::bring(const TreeNode& node) {
    if (awaiting(&node) == nullptr) return;
    const ScopedIncrement quiet(quiet_);
    if (node.parent() != nullptr) bring(*node.parent());
    insertRun(node, [] { return false; });
}

void WxTreeView::insertSome(const std::function<bool()>& timeIsOver) {
    while (!arriving_.empty() && !timeIsOver()) {
        const TreeNode* node = arriving_.back();
        arriving_.pop_back();
        if (awaiting(node) != nullptr) insertRun(*node, timeIsOver);
    }
}

// Frozen, because some controls redraw every line below the new one. Nothing waits while the control is
// hidden: the window then shows the progress of opening a file.
void WxTreeView::nodeAdded(const TreeNode& node) {
    if (awaiting(node.parent()) != nullptr) return;  // arrives after its parent
    const ScopedIncrement quiet(quiet_);
    const wxWindowUpdateLocker frozen(this);
    arriving_.push_back(&node);
    if (!IsShownOnScreen()) {
        insertSome([] { return false; });
    } else if (batches_ == 0) {
        changeSome();
    }
}

void WxTreeView::forget(const TreeNode& node) {
    if (liesIn(clicked_, node)) clicked_ = nullptr;
    if (liesIn(highlighted_, node)) highlighted_ = nullptr;
    if (liesIn(visibleLater_, node)) visibleLater_ = nullptr;
}

void WxTreeView::nodeRemoved(const TreeNode& node) {
    {
        const ScopedIncrement quiet(quiet_);
        insertSome([] { return false; });
    }
    forget(node);
    letGo(node);
    if (batches_ == 0) changeSome();
}

// Marks the items below `top` for removal. On Windows every item is removed by itself, children first,
// because removal takes time; elsewhere removing the top is fast.
void WxTreeView::letGo(const TreeNode& top) {
    std::vector<wxTreeItemId> items;
    for (const TreeNode* node = &top; node != nullptr; node = nextBelow(*node, top)) {
        NodeData& data = *dataOf(*node);
        data.node = nullptr;
        node->viewItem = nullptr;
#ifndef __WXMSW__
        if (node != &top) continue;
#endif
        items.push_back(data.GetId());
    }
    leaving_.insert(leaving_.end(), items.rbegin(), items.rend());
}

void WxTreeView::changeSome() {
    const ScopedIncrement quiet(quiet_);
    const auto begin = std::chrono::steady_clock::now();
    const auto timeIsOver = [begin] { return std::chrono::steady_clock::now() - begin >= kChangingAtATime; };
    while (!leaving_.empty() && !timeIsOver()) {
        Delete(leaving_.front());
        leaving_.pop_front();
    }
    insertSome(timeIsOver);
    const bool more = !leaving_.empty() || !arriving_.empty();
    if (more) wxWakeUpIdle();
    if (more != held_) {
        // Holds a batch open until the last item is changed: redrawing takes longer than that.
        held_ = more;
        drawn_ = begin;
        more ? batchBegins() : batchEnds();
    } else if (more && begin - drawn_ > kBetweenDrawings) {
        Thaw();
        Update();
        Freeze();
        drawn_ = begin;
    }
}

void WxTreeView::textChanged(const TreeNode& node) {
    if (awaiting(&node) == nullptr) SetItemText(itemOf(node), toWx(node.text()));
}

// Sorting moves the item with everything below it, which is much faster than making all of it anew. A single
// item is faster to make anew.
void WxTreeView::nodeMoved(const TreeNode& node) {
    if (awaiting(&node) != nullptr) return;
    const ScopedIncrement quiet(quiet_);
    const TreeNode* selected = liesIn(tree_.selected(), node) ? tree_.selected() : nullptr;
    if (node.firstChild() != nullptr) {
        childrenSorted(*node.parent());
        if (selected != nullptr) madeVisible(*selected);
        return;
    }
    const wxWindowUpdateLocker frozen(this);
    letGo(node);
    bring(node);
    if (batches_ == 0) changeSome();
    if (selected != nullptr) SelectItem(itemOf(*selected));
}

void WxTreeView::childrenSorted(const TreeNode& parent) {
    if (awaiting(&parent) != nullptr) return;
    const ScopedIncrement quiet(quiet_);
    const wxWindowUpdateLocker frozen(this);
    places_.reserve(parent.childCount());
    for (const TreeNode* child = parent.firstChild(); child != nullptr; child = child->nextSibling())
        if (awaiting(child) == nullptr)
            places_.emplace(itemOf(*child).GetID(), static_cast<int>(places_.size()));
    SortChildren(itemOf(parent));
    places_.clear();
}

int WxTreeView::OnCompareItems(const wxTreeItemId& first, const wxTreeItemId& second) {
    const auto place = [this](const wxTreeItemId& item) {
        const auto found = places_.find(item.GetID());
        return found == places_.end() ? -1 : found->second;  // awaiting removal
    };
    return place(first) - place(second);
}

void WxTreeView::expansionChanged(const TreeNode& node) {
    if (awaiting(&node) != nullptr) return;
    const ScopedIncrement quiet(quiet_);
    const wxTreeItemId item = itemOf(node);
    if (!node.expanded()) {
        Collapse(item);
    } else if (node.childCount() > 0 && !IsExpanded(item)) {
        Expand(item);
    }
}

void WxTreeView::madeVisible(const TreeNode& node) {
    if (batches_ > 0) {
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

void WxTreeView::cleared() {
    const ScopedIncrement quiet(quiet_);
    clicked_ = nullptr;
    highlighted_ = visibleLater_ = nullptr;
    leaving_.clear();
    arriving_.clear();
    changeSome();
    DeleteAllItems();
}

void WxTreeView::batchBegins() {
    if (batches_++ > 0) return;
    Freeze();
    // The Windows control lays out all its lines after every change, even while it is hidden.
    setHiddenRedraw(*this, false);
}

void WxTreeView::batchEnds() {
    if (batches_ == 1 && !held_) changeSome();
    if (--batches_ > 0) return;
    Thaw();
    setHiddenRedraw(*this, true);
    if (visibleLater_ != nullptr) madeVisible(*std::exchange(visibleLater_, nullptr));
}

// In idle time the control selects the root when nothing is selected, and moves a selection out of collapsed
// nodes. Neither is the user's action.
void WxTreeView::OnInternalIdle() {
    {
        const ScopedIncrement quiet(quiet_);
        if (held_) changeSome();
        wxTreeCtrl::OnInternalIdle();
    }
    agree();
}

// Selects the tree's selected node again when the control has changed its selection by itself. A pending
// click is going to change the selected node, so it is left alone.
void WxTreeView::agree() {
    if (quiet_ > 0 || batches_ > 0 || clicked_ != nullptr || selectedNode() == tree_.selected()) return;
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
