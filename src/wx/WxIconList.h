#pragma once

#include <wx/listctrl.h>

#include "platform/ListView.h"
#include "wx/WxImageNames.h"

namespace trevandix {

/// The list as large icons, small icons or a plain list. Holds a copy of the rows' texts.
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
    WxImageNames images_;
};

}  // namespace trevandix
