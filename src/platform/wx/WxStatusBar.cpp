#include "platform/wx/WxStatusBar.h"

#include <algorithm>

#include "platform/wx/WxAccessibleName.h"

namespace trevandix {

namespace {

constexpr int kMargin = 24;   // of a field around its text
constexpr int kBorders = 32;  // of all fields
constexpr int kGrip = 24;     // by which the window is resized

}  // namespace

WxStatusBar::WxStatusBar(wxWindow* parent) : wxStatusBar(parent, wxID_ANY) {
    SetName("StatusBar1");
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        if (!hinting_) showNews();
    });
    showNews();
}

void WxStatusBar::setNews(StatusField field, const wxString& text) {
    const auto place = static_cast<std::size_t>(field);
    news_[place] = text;
    if (!hinting_) showNews();
}

void WxStatusBar::setHint(const wxString& text) {
    if (text.empty()) {
        if (hinting_) showNews();
        return;
    }
    if (!hinting_) SetFieldsCount(1);
    hinting_ = true;
    SetStatusText(text);
}

void WxStatusBar::showNews() {
    const auto needed = [this](StatusField field) {
        return GetTextExtent(news_[static_cast<std::size_t>(field)]).GetWidth() + FromDIP(kMargin);
    };
    const int counts = needed(StatusField::Counts);
    const int saved = needed(StatusField::Saved);
    const int rest = GetClientSize().GetWidth() - counts - saved - FromDIP(kBorders);
    // The notice has what it needs; where that leaves too little for the selection, half.
    const int notice = std::min(needed(StatusField::Notice) + FromDIP(kGrip),
                                std::max(rest / 2, rest - needed(StatusField::Selection)));
    const int widths[kFields]{-1, counts, saved, std::max(notice, 1)};
    hinting_ = false;
    SetFieldsCount(kFields, widths);
    wxString all;
    for (int field = 0; field < kFields; ++field) {
        const wxString& text = news_[static_cast<std::size_t>(field)];
        SetStatusText(text, field);
        if (!text.empty()) all += (all.empty() ? "" : ", ") + text;
    }
    setAccessibleName(*this, "Status", all.empty() ? wxString("No configuration") : all);
}

}  // namespace trevandix
