#include "platform/wx/WxStatusBar.h"

#include <algorithm>

#include "platform/wx/WxAccessibleName.h"

namespace trevandix {

namespace {

constexpr int kMargin = 24;   // of a field around its text
constexpr int kBorders = 32;  // of all fields
constexpr int kGrip = 24;     // by which the window is resized

}  // namespace

WxStatusBar::WxStatusBar(wxWindow* parent)
    : wxStatusBar(parent, wxID_ANY, wxSTB_SIZEGRIP | wxSTB_ELLIPSIZE_MIDDLE | wxFULL_REPAINT_ON_RESIZE) {
    SetName("StatusBar1");
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        showNews();
    });
    Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
        event.Skip();
        showToolTip(event.GetPosition());
    });
    showNews();
}

void WxStatusBar::setNews(StatusField field, const wxString& text) {
    news_[static_cast<std::size_t>(field)] = text;
    showNews();
}

void WxStatusBar::setHint(const wxString& text) {
    if (hint_ == text) return;
    hint_ = text;
    showNews();
}

// A text that is shortened is there in full.
void WxStatusBar::showToolTip(const wxPoint& point) {
    for (int field = 0; field < kFields; ++field) {
        wxRect place;
        if (!GetFieldRect(field, place) || !place.Contains(point)) continue;
        const wxString text = GetStatusText(field);
        const bool fits = GetTextExtent(text).GetWidth() <= place.GetWidth();
        const wxString tip = fits ? wxString() : text;
        if (GetToolTipText() != tip) SetToolTip(tip);
        return;
    }
}

void WxStatusBar::showNews() {
    // A hint has the place of selection and notice; the rest stays to be seen.
    const bool hinting = !hint_.empty();
    const auto shown = [&](StatusField field) {
        if (hinting && field == StatusField::Selection) return hint_;
        if (hinting && field == StatusField::Notice) return wxString();
        return news_[static_cast<std::size_t>(field)];
    };
    const auto needed = [&](StatusField field) {
        return GetTextExtent(shown(field)).GetWidth() + FromDIP(kMargin);
    };
    const int counts = needed(StatusField::Counts);
    const int saved = needed(StatusField::Saved);
    const int rest = GetClientSize().GetWidth() - counts - saved - FromDIP(kBorders);
    // The notice has what it needs; where that leaves too little for the selection, half.
    const int notice = std::min(needed(StatusField::Notice) + FromDIP(kGrip),
                                std::max(rest / 2, rest - needed(StatusField::Selection)));
    const int widths[kFields]{-1, counts, saved, std::max(notice, 1)};
    SetFieldsCount(kFields, widths);
    wxString all;
    for (int field = 0; field < kFields; ++field) {
        SetStatusText(shown(static_cast<StatusField>(field)), field);
        const wxString& text = news_[static_cast<std::size_t>(field)];
        if (!text.empty()) all += (all.empty() ? "" : ", ") + text;
    }
    setAccessibleName(*this, "Status", all.empty() ? wxString("No configuration") : all);
}

}  // namespace trevandix
