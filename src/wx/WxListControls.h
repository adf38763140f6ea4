#pragma once

#include <wx/listctrl.h>

#include "platform/ListView.h"
#include "wx/WxColumns.h"
#include "wx/WxIcons.h"

namespace trevandix {

/// The list with columns. It holds no rows, but asks the ListView for those that it draws.
class WxReportList : public wxListCtrl {
public:
    WxReportList(wxWindow* parent, const ListView& list);

    /// Shows the rows of the ListView, and its columns if `columns`, with nothing selected.
    void refill(bool columns);
    /// Removes all rows from the display.
    void empty();
    /// Horizontal scroll position, in the control's own unit.
    int left() const;
    /// Scrolls until `row` is the first visible row, or as far as the list allows.
    void scrollTo(long row, int left);

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

    const ListView& list_;
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
