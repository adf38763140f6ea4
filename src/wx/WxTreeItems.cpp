#include "wx/WxTreeItems.h"

#include <wx/app.h>
#include <wx/event.h>
#include <wx/wupdlock.h>

#include <optional>
#include <utility>

#include "wx/WxBasics.h"
#include "wx/WxNative.h"

namespace trevandix {

wxIMPLEMENT_ABSTRACT_CLASS(WxTreeItems, wxTreeCtrl);

namespace {

constexpr std::chrono::milliseconds kBeforeDrawing{150};  // soon, as a dialog may have covered the lines
constexpr std::chrono::milliseconds kBetweenDrawings{400};
constexpr std::chrono::milliseconds kInputFirst{300};  // the longest that the first step waits for input
constexpr int kOutsideLoop = 50;  // milliseconds between steps behind menus and message boxes

// The time for a step of changes, `before` after the first step began. Under Wine, closing and opening the
// root of the control takes up to 50 ms more.
std::chrono::milliseconds stepTime(std::chrono::steady_clock::duration before) {
    using namespace std::chrono_literals;
#ifdef __WXMSW__
    return before <= 0s ? 3ms : before < 1s ? 15ms : before < 10s ? 30ms : 200ms;
#else
    return before < 1s ? 10ms : 20ms;
#endif
}

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

#ifdef __WXMSW__
// Keeps the root closed: with each change the Windows control lays out all its open lines.
class ClosedRoot {
public:
    /// `selected` and `first`: the items to select and to scroll to in the end, if any.
    ClosedRoot(wxTreeCtrl& tree, const wxTreeItemId& selected, const wxTreeItemId& first)
        : tree_(tree), root_(tree.GetRootItem()), selected_(selected), first_(first), silence_(&tree) {
        tree_.Collapse(root_);
    }
    ~ClosedRoot() {
        tree_.Expand(root_);
        if (selected_.IsOk() && selected_ != tree_.GetSelection()) tree_.SelectItem(selected_);
        if (first_.IsOk()) tree_.ScrollTo(first_);
    }
    ClosedRoot(const ClosedRoot&) = delete;
    ClosedRoot& operator=(const ClosedRoot&) = delete;

private:
    wxTreeCtrl& tree_;
    wxTreeItemId root_, selected_, first_;
    wxEventBlocker silence_;
};
#endif

}  // namespace

WxTreeItems::WxTreeItems(wxWindow* parent, StructureTree& tree, WxInputGate& gate)
    : wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_SINGLE, wxDefaultValidator, "TreeView1"),
      tree_(tree),
      gate_(gate) {
    for (const Image image : {Image::Config, Image::Main, Image::Item, Image::Plc, Image::Branch}) {
        images_.indexOf(imageName(image));
    }
    SetImages(images_.bundles());
    // Menus and message boxes of Windows handle no idle time, but timers.
    outsideLoop_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (mayChange()) changeMore();
    });
}

TreeNode* WxTreeItems::nodeOf(const wxTreeItemId& item) const {
    return item.IsOk() ? static_cast<NodeData*>(GetItemData(item))->node : nullptr;
}

wxTreeItemId WxTreeItems::itemOf(const TreeNode& node) {
    bring(node);
    return dataOf(node)->GetId();
}

void WxTreeItems::insert(const TreeNode& node, Where where) {
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
void WxTreeItems::insertRun(const TreeNode& node, const std::function<bool()>& timeIsOver) {
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
void WxTreeItems::bring(const TreeNode& node) {
    if (awaiting(&node) == nullptr) return;
    const ScopedIncrement quiet(quiet_);
    if (node.parent() != nullptr) bring(*node.parent());
    insertRun(node, [] { return false; });
}

void WxTreeItems::insertSome(const std::function<bool()>& timeIsOver) {
    while (!arriving_.empty() && !timeIsOver()) {
        const TreeNode* node = arriving_.back();
        arriving_.pop_back();
        if (awaiting(node) != nullptr) insertRun(*node, timeIsOver);
    }
}

// Frozen, because some controls redraw every line below the new one. Nothing waits while the control is
// hidden: the window then shows the progress of opening a file.
void WxTreeItems::nodeAdded(const TreeNode& node) {
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

void WxTreeItems::nodeRemoved(const TreeNode& node) {
    {
        const ScopedIncrement quiet(quiet_);
        insertSome([] { return false; });
    }
    letGo(node);
    if (batches_ == 0) changeSome();
}

// Marks the items below `top` for removal. On Windows every item is removed by itself, children first,
// because removal takes time; elsewhere removing the top is fast.
void WxTreeItems::letGo(const TreeNode& top) {
    std::vector<wxTreeItemId> items;
    for (const TreeNode* node = &top; node != nullptr; node = nextBelow(*node, top)) {
        NodeData& data = *dataOf(*node);
        data.node = nullptr;
        node->viewItem = nullptr;
        renamed_.erase(node);
        unsorted_.erase(node);
#ifndef __WXMSW__
        if (node != &top) continue;
#endif
        items.push_back(data.GetId());
    }
    leaving_.insert(leaving_.end(), items.rbegin(), items.rend());
}

bool WxTreeItems::changesWait() const {
    return !leaving_.empty() || !arriving_.empty() || !renamed_.empty() || !unsorted_.empty();
}

void WxTreeItems::changeFor(std::chrono::milliseconds time) {
#ifdef __WXMSW__
    const auto kept = [this](const wxTreeItemId& item) {
        return nodeOf(item) == nullptr ? wxTreeItemId() : item;
    };
    std::optional<ClosedRoot> closed;
    if (held_ && GetRootItem().IsOk() && IsExpanded(GetRootItem()))
        closed.emplace(*this, kept(GetSelection()), kept(GetFirstVisibleItem()));
#endif
    // From here, so that closing the root never takes all of the time.
    const auto over = [begin = std::chrono::steady_clock::now()](std::chrono::milliseconds limit) {
        return std::chrono::steady_clock::now() >= begin + limit;
    };
    const auto timeIsOver = [&] { return over(time); };
    while (!leaving_.empty() && !timeIsOver()) {
        Delete(leaving_.front());
        leaving_.pop_front();
    }
    insertSome(timeIsOver);
    while (!renamed_.empty() && !timeIsOver()) {
        const TreeNode& node = **renamed_.begin();
        SetItemText(itemOf(node), toWx(node.text()));
        renamed_.erase(&node);
    }
    if (over(stepTime({}))) return;  // as one sorting may take longer than a step
    while (!unsorted_.empty() && !timeIsOver()) {
        const TreeNode& parent = **unsorted_.begin();
        sort(parent);
        unsorted_.erase(&parent);
    }
}

// Holds a batch open until the last item is changed: redrawing takes longer than that.
void WxTreeItems::changeSome() {
    const ScopedIncrement quiet(quiet_);
    heldSince_ = std::chrono::steady_clock::now();
    changeFor(stepTime({}));
    if (!changesWait()) return;
    held_ = true;
    drawn_ = heldSince_ + kBeforeDrawing - kBetweenDrawings;
    batchBegins();
    outsideLoop_.Start(kOutsideLoop);
    wxWakeUpIdle();
}

// Changes and draws by turns, so that the window answers in between.
void WxTreeItems::changeMore() {
    const ScopedIncrement quiet(quiet_);
    const auto now = std::chrono::steady_clock::now();
    if (inputWaits() && now - heldSince_ < kInputFirst) return wxWakeUpIdle();
    if (!changesWait()) {
        held_ = false;
        outsideLoop_.Stop();
        return batchEnds();
    }
    if (now - drawn_ > kBetweenDrawings) {
        Thaw();
        Update();
        Freeze();
        drawn_ = now;
    } else {
        changeFor(stepTime(now - heldSince_));
    }
    wxWakeUpIdle();
}

void WxTreeItems::textChanged(const TreeNode& node) {
    if (awaiting(&node) != nullptr) return;
    if (inBatch()) {
        renamed_.insert(&node);
    } else {
        SetItemText(itemOf(node), toWx(node.text()));
    }
}

// Sorting moves the item with everything below it, which is much faster than making all of it anew, and one
// sorting puts many items into their places. A single item is faster to make anew.
void WxTreeItems::nodeMoved(const TreeNode& node) {
    if (awaiting(&node) != nullptr) return;
    const ScopedIncrement quiet(quiet_);
    const TreeNode* selected = liesIn(tree_.selected(), node) ? tree_.selected() : nullptr;
    if (inBatch()) {
        unsorted_.insert(node.parent());
        if (selected != nullptr) madeVisible(*selected);
        return;
    }
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

void WxTreeItems::childrenSorted(const TreeNode& parent) {
    if (awaiting(&parent) != nullptr) return;
    const ScopedIncrement quiet(quiet_);
    const wxWindowUpdateLocker frozen(this);
    sort(parent);
    answerOthers();  // the list is filled next
}

void WxTreeItems::sort(const TreeNode& parent) {
    places_.reserve(parent.childCount());
    for (const TreeNode* child = parent.firstChild(); child != nullptr; child = child->nextSibling())
        if (awaiting(child) == nullptr)
            places_.emplace(itemOf(*child).GetID(), static_cast<int>(places_.size()));
    SortChildren(itemOf(parent));
    places_.clear();
}

int WxTreeItems::OnCompareItems(const wxTreeItemId& first, const wxTreeItemId& second) {
    const auto place = [this](const wxTreeItemId& item) {
        const auto found = places_.find(item.GetID());
        return found == places_.end() ? -1 : found->second;  // awaiting removal
    };
    return place(first) - place(second);
}

void WxTreeItems::cleared() {
    const ScopedIncrement quiet(quiet_);
    leaving_.clear();
    arriving_.clear();
    renamed_.clear();
    unsorted_.clear();
    outsideLoop_.Stop();
    if (std::exchange(held_, false)) batchEnds();
    DeleteAllItems();
}

void WxTreeItems::batchBegins() {
    if (batches_++ > 0) return;
    Freeze();
    // The Windows control lays out all its lines after every change, even while it is hidden.
    setHiddenRedraw(*this, false);
}

void WxTreeItems::batchEnds() {
    if (batches_ == 1 && !held_) changeSome();
    if (--batches_ > 0) return;
    Thaw();
    setHiddenRedraw(*this, true);
}

// In idle time the control selects the root when nothing is selected, and moves a selection out of collapsed
// nodes. Neither is the user's action.
void WxTreeItems::OnInternalIdle() {
    const ScopedIncrement quiet(quiet_);
    if (mayChange()) changeMore();
    wxTreeCtrl::OnInternalIdle();
}

}  // namespace trevandix
