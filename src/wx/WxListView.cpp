#include "wx/WxListView.h"

#include <wx/app.h>
#include <wx/sizer.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <utility>

#include "wx/WxBasics.h"
#include "wx/WxNative.h"

namespace trevandix {

namespace {

constexpr char kSpokenName[] = "Contents";
constexpr char kSpokenPurpose[] = "What the selected node holds";

}  // namespace

WxListView::WxListView(wxWindow* parent, ListView& list, WxInputGate& gate, OpenMenu openMenu)
    : wxPanel(parent),
      list_(list),
      gate_(gate),
      openMenu_(std::move(openMenu)),
      report_(new WxReportList(this, "ListView1")),
      shown_(report_) {
    report_->connect(list);
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->Add(report_, wxSizerFlags(1).Expand());
    watch(*report_);
    report_->Hide();
    Bind(wxEVT_CHAR_HOOK, &WxListView::onKey, this);
    list_.setDisplay(this);
}

WxListView::~WxListView() {
    list_.setDisplay(nullptr);
    ++quiet_;
    DestroyChildren();  // before the members that they use are destroyed
}

void WxListView::watch(wxListCtrl& control) {
    const auto changed = [this](wxListEvent& event) {
        event.Skip();
        if (quiet_ == 0) click();
    };
    control.Bind(wxEVT_LIST_ITEM_SELECTED, changed);
    control.Bind(wxEVT_LIST_ITEM_DESELECTED, changed);
    control.Bind(wxEVT_LIST_ITEM_FOCUSED, changed);
    control.Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { doubleClick(); });
    control.Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
        if (event.GetColumn() < 0) return;
        const auto column = static_cast<std::size_t>(event.GetColumn());
        gate_.post(WxInputGate::Kind::Single,
                   [column](MainWindowEvents& e) { e.ListView1_ColumnClick(column); });
    });
    control.Bind(wxEVT_CONTEXT_MENU, &WxListView::onContextMenu, this);
    makeReadable(control, kSpokenName, kSpokenPurpose);
    watchRows(rowArea(control));
}

void WxListView::watchRows(wxWindow& rows) {
    // The control does not propagate this event, but the main window must know which view has the focus.
    rows.Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        wxChildFocusEvent focused(this);
        GetParent()->GetEventHandler()->ProcessEvent(focused);
    });
    rows.Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
        event.Skip();
        click();
    });
    rows.Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
        event.Skip();
        if (beside(event.GetPosition())) doubleClick();
    });
    rows.Bind(wxEVT_RIGHT_DOWN, &WxListView::onRightDown, this);
}

bool WxListView::beside(const wxPoint& point) const {
    int flags = 0;
    return shown_->HitTest(point, flags) == wxNOT_FOUND;
}

void WxListView::click() {
    gate_.post(WxInputGate::Kind::ListClick, [](MainWindowEvents& events) { events.ListView1_Click(); });
}

void WxListView::doubleClick() {
    gate_.post(WxInputGate::Kind::Single, [](MainWindowEvents& events) { events.ListView1_DblClick(); });
}

// Without columns, report mode has no header to show, so a plain list is used.
void WxListView::showFitting() {
    const bool report = list_.mode() == ListMode::Report && !list_.columns().empty();
    const ListMode mode = list_.mode() == ListMode::Report ? ListMode::List : list_.mode();
    wxListCtrl* before = shown_;
    const bool focused = IsDescendant(FindFocus());
    if (!report && (icons_ == nullptr || icons_->mode() != mode)) {
        if (icons_ != nullptr) {
            icons_->Hide();
            wxTheApp->ScheduleForDestruction(icons_);
        }
        if (before == icons_) before = nullptr;
        icons_ = new WxIconList(this, list_, mode);
        icons_->Hide();
        GetSizer()->Add(icons_, wxSizerFlags(1).Expand());
        watch(*icons_);
    }
    shown_ = report ? static_cast<wxListCtrl*>(report_) : icons_;
    if (shown_ == before) return;
    if (before != nullptr) before->Hide();
    shown_->Show(list_.visible());
    Layout();
    if (focused && list_.visible()) shown_->SetFocus();
}

void WxListView::contentsChanged(bool columns, const std::optional<ListPlace>& place) {
    const ScopedIncrement quiet(quiet_);
    showFitting();
    const wxWindowUpdateLocker frozen(shown_);  // redraws once
    if (shown_ == report_) {
        report_->refill(columns);
        if (icons_ != nullptr) icons_->DeleteAllItems();
    } else {
        icons_->refill();
        report_->empty();
    }
    if (place) restore(*place);
}

ListPlace WxListView::place() const {
    if (shown_ == report_) return report_->place();
    ListPlace place;
    place.selected = selectedRows();
    const long focused = shown_->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    if (focused >= 0) place.focused = static_cast<std::size_t>(focused);
    return place;
}

void WxListView::restore(const ListPlace& place) {
    if (shown_ == report_) return report_->restore(place);
    for (const std::size_t row : place.selected)
        shown_->SetItemState(static_cast<long>(row), wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    if (!place.focused) return;
    shown_->SetItemState(static_cast<long>(*place.focused), wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    shown_->EnsureVisible(static_cast<long>(*place.focused));
}

void WxListView::rowChanged(std::size_t row) {
    const ScopedIncrement quiet(quiet_);
    if (shown_ == report_) {
        report_->RefreshItem(static_cast<long>(row));
    } else {
        icons_->refreshRow(row);
    }
}

void WxListView::setVisible(bool visible) {
    shown_->Show(visible);
    Layout();
}

bool WxListView::usable() const {
    return shown_->IsShownOnScreen();
}

std::vector<std::size_t> WxListView::selectedRows() const {
    return trevandix::selectedRows(*shown_);
}

std::optional<std::size_t> WxListView::currentRow() const {
    const long row = shown_->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    if (row < 0 || shown_->GetItemState(row, wxLIST_STATE_SELECTED) == 0) return std::nullopt;
    return static_cast<std::size_t>(row);
}

void WxListView::selectAll() {
    const ScopedIncrement quiet(quiet_);
    if (shown_->GetItemCount() == 0) return;
    const wxWindowUpdateLocker frozen(shown_);  // redraws once for all rows
    shown_->SetItemState(-1, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    click();
}

void WxListView::onKey(wxKeyEvent& event) {
    if (event.GetKeyCode() == 'A' && event.GetModifiers() == wxMOD_CONTROL) {
        // An earlier click in the tree may change the rows, so it is handled first.
        gate_.run([](MainWindowEvents&) {});
        list_.selectAll();
    } else {
        event.Skip();
    }
}

// A right click outside the selection selects the row below the pointer, because the menu acts on the
// selected rows.
void WxListView::onRightDown(wxMouseEvent& event) {
    focus();
    int flags = 0;
    const long row = shown_->HitTest(event.GetPosition(), flags);
#ifdef __WXMSW__
    event.Skip(row >= 0);  // beside the rows the control would clear the selection
#else
    event.Skip();
#endif
    if (row < 0 || shown_->GetItemState(row, wxLIST_STATE_SELECTED) != 0) return;
    {
        const ScopedIncrement quiet(quiet_);
        shown_->SetItemState(-1, 0, wxLIST_STATE_SELECTED);
        const long both = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
        shown_->SetItemState(row, both, both);
    }
    click();
}

void WxListView::onContextMenu(wxContextMenuEvent& event) {
    wxWindow& rows = rowArea(*shown_);
    if (event.GetPosition() == wxDefaultPosition) {
        wxRect line;
        const long row = shown_->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
        const bool shows = row >= 0 && shown_->GetItemRect(row, line) && GetClientRect().Intersects(line);
        openMenu_(*shown_, shows ? line.GetBottomLeft() : wxPoint());
        return;
    }
    openMenu_(rows, rows.ScreenToClient(event.GetPosition()));
}

}  // namespace trevandix
