#include "wx/WxStatusBar.h"

#include <wx/control.h>
#include <wx/dcclient.h>

#include <algorithm>

#include "wx/WxAccessibleName.h"

namespace trevandix {

namespace {

constexpr int kMargin = 24;   // of a field around its text
constexpr int kPadding = 8;   // the least of it
constexpr int kBorders = 48;  // of all fields
constexpr int kGrip = 24;     // by which the window is resized, over the last field

}  // namespace

WxStatusBar::WxStatusBar(wxWindow* parent)
    : wxStatusBar(parent, wxID_ANY, wxSTB_SIZEGRIP | wxFULL_REPAINT_ON_RESIZE) {
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

// A hint has the place of selection and notice; the rest stays to be seen.
wxString WxStatusBar::fullText(StatusField field) const {
    if (!hint_.empty() && field == StatusField::Selection) return hint_;
    if (!hint_.empty() && field == StatusField::Notice) return {};
    return news_[static_cast<std::size_t>(field)];
}

void WxStatusBar::showToolTip(const wxPoint& point) {
    for (int field = 0; field < kFields; ++field) {
        wxRect place;
        if (!GetFieldRect(field, place) || !place.Contains(point)) continue;
        const wxString text = fullText(static_cast<StatusField>(field));
        const wxString tip = GetStatusText(field) == text ? wxString() : text;
        if (GetToolTipText() != tip) SetToolTip(tip);
        return;
    }
}

void WxStatusBar::showNews() {
    const auto needed = [this](StatusField field) {
        return GetTextExtent(fullText(field)).GetWidth() + FromDIP(kMargin);
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
        SetStatusText(fitting(field), field);
        const wxString& text = news_[static_cast<std::size_t>(field)];
        if (!text.empty()) all += (all.empty() ? "" : ", ") + text;
    }
    setAccessibleName(*this, "Status", all.empty() ? wxString("No configuration") : all);
}

// The first line of the text, shortened by ourselves: the toolkit takes no account of the grip.
wxString WxStatusBar::fitting(int field) const {
    wxRect place;
    GetFieldRect(field, place);
    const int room = place.GetWidth() - FromDIP(kPadding) - (field + 1 == kFields ? FromDIP(kGrip) : 0);
    wxClientDC dc(const_cast<WxStatusBar*>(this));
    dc.SetFont(GetFont());
    const wxString line = fullText(static_cast<StatusField>(field)).BeforeFirst('\n');
    return wxControl::Ellipsize(line, dc, wxELLIPSIZE_MIDDLE, std::max(room, 0), wxELLIPSIZE_FLAGS_NONE);
}

}  // namespace trevandix
