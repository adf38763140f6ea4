#include "platform/wx/WxStatusBar.h"

#include "platform/wx/WxAccessibleName.h"

namespace trevandix {

namespace {

constexpr int kMargin = 24;  // of a field around its text

}  // namespace

WxStatusBar::WxStatusBar(wxWindow* parent) : wxStatusBar(parent, wxID_ANY) {
    SetName("StatusBar1");
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
    const int widths[kFields]{-1, needed(StatusField::Counts), needed(StatusField::Saved), -1};
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
