#include "wx/WxFormList.h"

#include <utility>

namespace trevandix {

namespace {

constexpr int kLeastWidth = 360;  // device-independent pixels
constexpr int kLeastHeight = 110;

void run(const std::function<void()>& handler) {
    if (handler) handler();
}

}  // namespace

WxFormList::WxFormList(wxWindow* parent) : WxReportList(parent, "") {
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
    // Handlers run after the control has finished with the event, because they change its rows.
    Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { CallAfter([this] { run(handlers_.open); }); });
    Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
        if (event.GetColumn() < 0) return;
        const auto column = static_cast<std::size_t>(event.GetColumn());
        CallAfter([this, column] {
            if (handlers_.sort) handlers_.sort(column);
        });
    });
    Bind(wxEVT_LIST_ITEM_FOCUSED, [this](wxListEvent& event) {
        event.Skip();
        run(handlers_.move);
    });
    Bind(wxEVT_CHAR_HOOK, &WxFormList::onKey, this);
}

void WxFormList::show(const ListContents& contents, ListHandlers handlers) {
    connect(contents);
    handlers_ = std::move(handlers);
    refill(true);
}

void WxFormList::refresh(const ListPlace& place) {
    refill(false);
    restore(place);
    if (place.focused) EnsureVisible(static_cast<long>(*place.focused));
}

void WxFormList::onKey(wxKeyEvent& event) {
    const bool control = event.GetModifiers() == wxMOD_CONTROL;
    if (control && event.GetKeyCode() == 'A') {
        if (GetItemCount() > 0) SetItemState(-1, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    } else if (control && (event.GetKeyCode() == 'C' || event.GetKeyCode() == WXK_INSERT)) {
        run(handlers_.copy);
    } else {
        event.Skip();
    }
}

}  // namespace trevandix
