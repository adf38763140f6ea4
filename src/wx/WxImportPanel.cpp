#include "wx/WxImportPanel.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include "wx/WxAccessibleName.h"

namespace trevandix {

namespace {

constexpr int kHighestPercent = 99;
constexpr int kGaugeWidth = 280;
constexpr int kMargin = 20;

// Windows lets windows draw over what stands in front of them unless told otherwise, and wx never tells it.
void keepClear([[maybe_unused]] wxWindow& window) {
#ifdef __WXMSW__
    const auto handle = static_cast<HWND>(window.GetHandle());
    ::SetWindowLongPtr(handle, GWL_STYLE, ::GetWindowLongPtr(handle, GWL_STYLE) | WS_CLIPSIBLINGS);
#endif
}

}  // namespace

WxImportPanel::WxImportPanel(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_RAISED, "pnlImpStat") {
    Hide();
    for (wxWindow* sibling : parent->GetChildren()) keepClear(*sibling);
    auto* label = new wxStaticText(this, wxID_ANY, "Loading File ....", wxDefaultPosition, wxDefaultSize, 0,
                                   "lblLabel");
    percent_ =
        new wxGauge(this, wxID_ANY, kHighestPercent, wxDefaultPosition, FromDIP(wxSize(kGaugeWidth, -1)),
                    wxGA_HORIZONTAL | wxGA_SMOOTH, wxDefaultValidator, "pnlPercent");
    setAccessibleName(*this, "Loading", "Shows while a file is read");
    setAccessibleName(*percent_, label->GetLabel(), "How much of the file has been read");
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(label, wxSizerFlags().CentreHorizontal());
    column->Add(percent_, wxSizerFlags().Expand().Border(wxTOP, FromDIP(kMargin) / 2));
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(column, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kMargin)));
    SetSizerAndFit(frame);
    const auto paint = [this] { SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)); };
    paint();  // or what lies below it, the sash, shows through
    Bind(wxEVT_SYS_COLOUR_CHANGED, [paint](wxSysColourChangedEvent& event) {
        paint();
        event.Skip();
    });
}

void WxImportPanel::setShown(bool shown) {
    if (shown) recentre();
    Show(shown);
    if (shown) Raise();
}

void WxImportPanel::recentre() {
    SetSize(GetBestSize());
    CentreOnParent();
}

}  // namespace trevandix
