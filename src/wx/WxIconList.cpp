#include "wx/WxIconList.h"

#include <wx/wupdlock.h>

#include "wx/WxIcons.h"
#include "wx/WxText.h"

namespace trevandix {

namespace {

long styleOf(ListMode mode) {
    if (mode == ListMode::Icon) return wxLC_ICON | wxLC_AUTOARRANGE;
#ifndef __WXGTK__  // which would put the names below the icons
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
