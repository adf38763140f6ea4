#pragma once

#include <wx/listctrl.h>

#include "platform/ListView.h"
#include "wx/WxColumns.h"
#include "wx/WxIcons.h"

namespace trevandix {

/// The window that receives the mouse events of the rows. Where wx draws the control itself, this is a child
/// of it.
wxWindow& rowArea(wxListCtrl& control);

/// Sets what a screen reader says about a list. Where wx draws the control itself, the name tells the first
/// columns of the current row too. Also redraws the header when the list is scrolled, which wx forgets.
void makeReadable(wxListCtrl& control, const wxString& name, const wxString& purpose, int columns = 1);

/// Selected rows, ascending.
std::vector<std::size_t> selectedRows(const wxListCtrl& control);

/// The list with columns. It holds no rows, but asks for those that it draws.
class WxReportList : public wxListCtrl {
public:
    WxReportList(wxWindow* parent, const wxString& name);

    /// Must be called once before `refill`. `contents` must outlive the list.
    void connect(const ListContents& contents) { contents_ = &contents; }

    /// Shows the rows of the contents, and the columns if `columns`, with nothing selected.
    void refill(bool columns);
    ListPlace place() const;
    /// To be called after `refill`.
    void restore(const ListPlace& place);
    /// Removes all rows from the display.
    void empty();
    /// Horizontal scroll position, in the control's own unit.
    int left() const;

protected:
    wxString OnGetItemText(long row, long column) const override;
    int OnGetItemImage(long row) const override;

private:
    void buildColumns();
    void takeOverWidths();
    std::vector<int> widths() const;
    void setWidths(const std::vector<int>& widths);
    void loadImages();
    void showSortArrow();
    /// Scrolls until `row` is the first visible row, or as far as the list allows.
    void scrollTo(long row, int left);

    const ListContents* contents_ = nullptr;
    mutable WxImageList images_{kTreeIconSize};
    WxColumnScaling scaling_;
    std::vector<int> least_;  // of each column, so that its header is readable
    bool widthless_ = false;
};

/// The list as large icons, small icons or plain list. Holds a copy of the rows' texts.
class WxIconList : public wxListCtrl {
public:
    /// `mode` is any but Report.
    WxIconList(wxWindow* parent, const ListView& list, ListMode mode);

    ListMode mode() const { return mode_; }
    void refill();
    void refreshRow(std::size_t row);

private:
    std::string_view iconOf(const ListRow& row) const;

    const ListView& list_;
    ListMode mode_;
    WxImageList images_;
};

}  // namespace trevandix
