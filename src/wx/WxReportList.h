#pragma once

#include <wx/listctrl.h>

#include "platform/ListView.h"
#include "wx/WxIcons.h"
#include "wx/WxImageNames.h"
#include "wx/WxLayoutScaling.h"

namespace trevandix {

/// The list with columns. Its rows stay in the ListView; the control asks for those that it draws.
class WxReportList : public wxListCtrl {
public:
    WxReportList(wxWindow* parent, const ListView& list);

    /// Takes over the rows anew, and the columns where they are other ones. Nothing is selected any more.
    void refill(bool columns);
    /// Shows no row.
    void empty();
    /// How far it is scrolled sideways, in the control's own unit.
    int left() const;
    /// Scrolls so that the row is the topmost, as far as there are enough below it.
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
    mutable WxImageNames images_{kTreeIconSize};
    WxLayoutScaling scaling_;
    std::vector<int> least_;  // of each column, so that its header can be read
    bool widthless_ = false;
};

}  // namespace trevandix
