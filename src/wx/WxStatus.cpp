#include "wx/WxStatus.h"

#include <wx/control.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <utility>

#include "wx/WxNative.h"

namespace trevandix {

namespace {

constexpr int kMargin = 24;   // between a text and the edges of a field that has room, both sides together
constexpr int kPadding = 8;   // the same in a field that is too narrow for its text
constexpr int kBorders = 60;  // of all fields
constexpr int kGrip = 24;     // the size grip over the last field
constexpr char kProblemsTip[] = " (a click shows them)";

}  // namespace

WxStatusBar::WxStatusBar(wxWindow* parent, Clicked clicked)
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
    Bind(wxEVT_LEFT_UP, [this, clicked = std::move(clicked)](wxMouseEvent& event) {
        event.Skip();
        if (const auto field = fieldAt(event.GetPosition())) clicked(*field);
    });
    showNews();
}

void WxStatusBar::setNews(StatusField field, const wxString& text) {
    news_[static_cast<std::size_t>(field)] = text;
    showSoon();
    if (field == StatusField::Notice && !text.empty()) announce(*this, text);
}

void WxStatusBar::setHint(const wxString& text) {
    if (hint_ == text) return;
    hint_ = text;
    showSoon();
}

void WxStatusBar::showSoon() {
    if (std::exchange(stale_, true)) return;
    CallAfter([this] {
        stale_ = false;
        showNews();
    });
}

// A hint replaces selection and notice; the other fields stay.
wxString WxStatusBar::fullText(StatusField field) const {
    if (!hint_.empty() && field == StatusField::Selection) return hint_;
    if (!hint_.empty() && field == StatusField::Notice) return {};
    return news_[static_cast<std::size_t>(field)];
}

std::optional<StatusField> WxStatusBar::fieldAt(const wxPoint& point) const {
    for (int field = 0; field < kFields; ++field) {
        wxRect place;
        if (GetFieldRect(field, place) && place.Contains(point)) return static_cast<StatusField>(field);
    }
    return std::nullopt;
}

void WxStatusBar::showToolTip(const wxPoint& point) {
    const auto field = fieldAt(point);
    if (!field) return;
    const wxString text = fullText(*field);
    wxString tip = GetStatusText(static_cast<int>(*field)) == text ? wxString() : text;
    if (*field == StatusField::Problems && !text.empty()) tip = text + kProblemsTip;
    if (GetToolTipText() != tip) SetToolTip(tip);
}

// Where there is little room, first the selection gives way, then the notice, then the counts.
void WxStatusBar::showNews() {
    const auto needed = [this](StatusField field) {
        const wxString text = fullText(field);
        return text.empty() ? 0 : GetTextExtent(text).GetWidth() + FromDIP(kMargin);
    };
    const int saved = needed(StatusField::Saved);
    const int problems = needed(StatusField::Problems);
    const int room = GetClientSize().GetWidth() - saved - problems - FromDIP(kBorders);
    const int counts = std::clamp(needed(StatusField::Counts), 1, std::max(room, 1));
    const int rest = room - counts;
    // The notice gets the width it needs, but leaves a quarter to a selection that needs it.
    const int notice = std::min(needed(StatusField::Notice) + FromDIP(kGrip),
                                std::max(rest * 3 / 4, rest - needed(StatusField::Selection)));
    const int widths[kFields]{-1, counts, std::max(saved, 1), std::max(problems, 1), std::max(notice, 1)};
    SetFieldsCount(kFields, widths);
    wxString all;
    for (int field = 0; field < kFields; ++field) {
        SetStatusText(fitting(field), field);
        const wxString& text = news_[static_cast<std::size_t>(field)];
        if (!text.empty()) all += (all.empty() ? "" : ", ") + text;
    }
    setAccessibleName(*this, "Status", all.empty() ? wxString("No configuration") : all);
}

// Shortens the first line of the text itself, because wx ignores the size grip.
wxString WxStatusBar::fitting(int field) const {
    wxRect place;
    GetFieldRect(field, place);
    const int room = place.GetWidth() - FromDIP(kPadding) - (field + 1 == kFields ? FromDIP(kGrip) : 0);
    wxClientDC dc(const_cast<WxStatusBar*>(this));
    dc.SetFont(GetFont());
    const wxString line = fullText(static_cast<StatusField>(field)).BeforeFirst('\n');
    return wxControl::Ellipsize(line, dc, wxELLIPSIZE_MIDDLE, std::max(room, 0), wxELLIPSIZE_FLAGS_NONE);
}

namespace {

constexpr int kHighestPercent = 99;
constexpr int kGaugeWidth = 280;
constexpr int kPanelMargin = 20;

}  // namespace

WxImportPanel::WxImportPanel(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_RAISED, "pnlImpStat") {
    Hide();
    for (wxWindow* sibling : parent->GetChildren()) clipSiblings(*sibling);
    label_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblLabel");
    percent_ =
        new wxGauge(this, wxID_ANY, kHighestPercent, wxDefaultPosition, FromDIP(wxSize(kGaugeWidth, -1)),
                    wxGA_HORIZONTAL | wxGA_SMOOTH, wxDefaultValidator, "pnlPercent");
    setAccessibleName(*this, "Progress", "Shows while a file or a table is read");
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(label_, wxSizerFlags().CentreHorizontal());
    column->Add(percent_, wxSizerFlags().Expand().Border(wxTOP, FromDIP(kPanelMargin) / 2));
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(column, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kPanelMargin)));
    SetSizerAndFit(frame);
    const auto paint = [this] { SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)); };
    paint();  // otherwise the sash behind the panel shows through
    Bind(wxEVT_SYS_COLOUR_CHANGED, [paint](wxSysColourChangedEvent& event) {
        paint();
        event.Skip();
    });
}

void WxImportPanel::show(const wxString& text) {
    label_->SetLabel(text);
    setAccessibleName(*percent_, text, "How much of it is done");
    recentre();
    Show();
    Raise();
}

void WxImportPanel::recentre() {
    SetSize(GetBestSize());
    CentreOnParent();
}

}  // namespace trevandix
