#include "wx/WxListControls.h"

#include <wx/wupdlock.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "wx/WxBasics.h"
#include "wx/WxNative.h"

namespace trevandix {

namespace {

constexpr int kDefaultColumnWidth = 96;  // device-independent pixels
constexpr int kHeaderMargin = 24;

}  // namespace

wxWindow& rowArea(wxListCtrl& control) {
#ifdef __WXGTK__
    for (wxWindow* part : control.GetChildren()) {
        if (part->GetName() != "wxlistctrlcolumntitles") return *part;
    }
#endif
    return control;
}

void makeReadable(wxListCtrl& control, const wxString& name, const wxString& purpose,
                  [[maybe_unused]] int columns) {
    wxWindow& rows = rowArea(control);
    setAccessibleName(control, name, purpose);
    setAccessibleName(rows, name, purpose);
#ifdef __WXGTK__
    // wx redraws the header before it scrolls the rows, so the header is redrawn afterwards.
    for (const auto& type : {wxEVT_SCROLLWIN_LINEUP, wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP,
                             wxEVT_SCROLLWIN_PAGEDOWN, wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM,
                             wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE}) {
        control.Bind(type, [&control](wxScrollWinEvent& event) {
            event.Skip();
            control.CallAfter([&control] { control.Refresh(); });
        });
    }
    // As in the tree, the name tells the current row. A virtual list leaves event.GetText() empty.
    control.Bind(wxEVT_LIST_ITEM_FOCUSED, [&control, &rows, name, columns](wxListEvent& event) {
        event.Skip();
        if (event.GetIndex() < 0) return;
        wxString spoken = name + ":";
        for (int column = 0; column < columns; ++column)
            spoken += " " + control.GetItemText(event.GetIndex(), column);
        setAccessibleName(rows, spoken);
    });
#endif
}

std::vector<std::size_t> selectedRows(const wxListCtrl& control) {
    std::vector<std::size_t> rows(static_cast<std::size_t>(control.GetSelectedItemCount()));
    if (rows.size() == static_cast<std::size_t>(control.GetItemCount())) {  // many, each asked by a message
        std::iota(rows.begin(), rows.end(), std::size_t{0});
        return rows;
    }
    rows.clear();
    for (long row = -1; (row = control.GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) >= 0;) {
        rows.push_back(static_cast<std::size_t>(row));
    }
    return rows;
}

WxReportList::WxReportList(wxWindow* parent, const wxString& name)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxBORDER_SIMPLE, wxDefaultValidator, name),
      scaling_(*this, {[this] { return widths(); }, [this](const auto& wanted) { setWidths(wanted); },
                       [this] { return least_; }}) {
    // The control itself applies the new width only after this event.
    Bind(wxEVT_LIST_COL_END_DRAG, [this](wxListEvent& event) {
        event.Skip();
        CallAfter(&WxReportList::takeOverWidths);
    });
    // Columns created while the list had no width are created again.
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        if (widthless_ && GetClientSize().GetWidth() > 0) buildColumns();
    });
}

void WxReportList::refill(bool columns) {
    const wxWindowUpdateLocker frozen(this);
    const long rows = static_cast<long>(contents_->rowCount());
    empty();
    if (columns) buildColumns();
    showSortArrow();
    loadImages();
    SetItemCount(rows);
    if (rows == 0) return;
    scrollTo(0, 0);
    SetItemState(0, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
}

// wx keeps the selection of row numbers, so new rows would appear selected.
void WxReportList::empty() {
    if (GetItemCount() > 0) SetItemState(-1, 0, wxLIST_STATE_SELECTED);
    SetItemCount(0);
}

ListPlace WxReportList::place() const {
    ListPlace place;
    place.selected = selectedRows(*this);
    const long focused = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    if (focused >= 0) place.focused = static_cast<std::size_t>(focused);
    place.top = static_cast<std::size_t>(std::max(GetTopItem(), 0L));
    place.left = left();
    return place;
}

void WxReportList::restore(const ListPlace& place) {
    if (GetItemCount() == 0) return;
    const wxWindowUpdateLocker frozen(this);
    if (place.selected.size() == static_cast<std::size_t>(GetItemCount())) {
        SetItemState(-1, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    } else {
        for (const std::size_t row : place.selected)
            SetItemState(static_cast<long>(row), wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }
    if (place.focused) {
        SetItemState(static_cast<long>(*place.focused), wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
        if (!place.top) EnsureVisible(static_cast<long>(*place.focused));
    }
    if (place.top) scrollTo(static_cast<long>(*place.top), place.left);
}

#ifdef __WXMSW__
int WxReportList::left() const {
    return GetScrollPos(wxHORIZONTAL);
}
#else
int WxReportList::left() const {
    return GetViewStart().x;
}
#endif

void WxReportList::scrollTo(long row, int left) {
    EnsureVisible(std::min<long>(row + GetCountPerPage(), GetItemCount()) - 1);
    EnsureVisible(row);
#ifdef __WXMSW__
    if (left != this->left()) ScrollList(left - this->left(), 0);
#else
    Scroll(left, wxDefaultCoord);
    Refresh();  // including the header
#endif
}

void WxReportList::showSortArrow() {
    const auto column = contents_->sortColumn();
    if (column && static_cast<int>(*column) < GetColumnCount()) {
        ShowSortIndicator(static_cast<int>(*column), true);
    } else {
        RemoveSortIndicator();
    }
}

void WxReportList::buildColumns() {
    DeleteAllColumns();
    const int width = GetClientSize().GetWidth();
    widthless_ = width <= 0;
    least_.clear();
    std::vector<int> wanted;
    for (const ListColumn& column : contents_->columns()) {
        least_.push_back(GetTextExtent(toWx(column.header)).GetWidth() + FromDIP(kHeaderMargin));
        wanted.push_back(column.width > 0 ? static_cast<int>(std::lround(width * column.width))
                                          : FromDIP(kDefaultColumnWidth));
    }
    if (!widthless_) scaling_.keep(wanted, GetSize().GetWidth());
    wanted = widened(std::move(wanted), least_, width);
    for (std::size_t i = 0; i < wanted.size(); ++i)
        AppendColumn(toWx(contents_->columns()[i].header), wxLIST_FORMAT_LEFT, wanted[i]);
}

// A column that the user made narrower than its header stays narrow.
void WxReportList::takeOverWidths() {
    const std::vector<int> chosen = widths();
    for (std::size_t i = 0; i < std::min(chosen.size(), least_.size()); ++i)
        least_[i] = std::min(least_[i], chosen[i]);
    scaling_.keep(chosen, GetSize().GetWidth());
}

std::vector<int> WxReportList::widths() const {
    std::vector<int> result;
    for (int column = 0; column < GetColumnCount(); ++column) result.push_back(GetColumnWidth(column));
    return result;
}

void WxReportList::setWidths(const std::vector<int>& widths) {
    for (std::size_t column = 0; column < widths.size(); ++column)
        SetColumnWidth(static_cast<int>(column), widths[column]);
}

// Loads all images before the first row is drawn: they cannot be added while the control is drawing.
void WxReportList::loadImages() {
    const std::size_t before = images_.bundles().size();
    std::string_view last;
    for (std::size_t row = 0; row < contents_->rowCount(); ++row) {
        if (contents_->icon(row) != last) images_.indexOf(last = contents_->icon(row));
    }
    if (images_.bundles().size() != before) SetSmallImages(images_.bundles());
}

wxString WxReportList::OnGetItemText(long row, long column) const {
    if (row < 0 || static_cast<std::size_t>(row) >= contents_->rowCount()) return {};
    return toWx(contents_->cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column)));
}

int WxReportList::OnGetItemImage(long row) const {
    if (row < 0 || static_cast<std::size_t>(row) >= contents_->rowCount()) return -1;
    return images_.indexOf(contents_->icon(static_cast<std::size_t>(row)));
}

namespace {

long styleOf(ListMode mode) {
    if (mode == ListMode::Icon) return wxLC_ICON | wxLC_AUTOARRANGE;
#ifndef __WXGTK__  // GTK would put the names below the icons
    if (mode == ListMode::SmallIcon) return wxLC_SMALL_ICON | wxLC_AUTOARRANGE;
#endif
    return wxLC_LIST;
}

}  // namespace

WxIconList::WxIconList(wxWindow* parent, const ListView& list, ListMode mode)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, styleOf(mode) | wxBORDER_SIMPLE,
                 wxDefaultValidator, "ListView1"),
      list_(list),
      mode_(mode),
      images_(mode == ListMode::Icon ? kLargeIconSize : kTreeIconSize) {}

std::string_view WxIconList::iconOf(const ListRow& row) const {
    return mode_ == ListMode::Icon ? row.largeIcon : row.smallIcon;
}

void WxIconList::refill() {
    const wxWindowUpdateLocker frozen(this);
    DeleteAllItems();
    for (const ListRow& row : list_.rows()) images_.indexOf(iconOf(row));
    if (mode_ == ListMode::Icon) {
        SetNormalImages(images_.bundles());
    } else {
        SetSmallImages(images_.bundles());
    }
    long position = 0;
    for (const ListRow& row : list_.rows()) {
        InsertItem(position++, toWx(row.text), images_.indexOf(iconOf(row)));
    }
    if (position > 0) SetItemState(0, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
}

void WxIconList::refreshRow(std::size_t row) {
    SetItemText(static_cast<long>(row), toWx(list_.rows()[row].text));
}

}  // namespace trevandix
