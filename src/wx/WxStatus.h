#pragma once

#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/statusbr.h>

#include <array>

#include "platform/MainWindow.h"

namespace trevandix {

/// The status bar: one field for each kind of news. A field shows the first line of its text, shortened in
/// the middle where it is too long; the tooltip shows all of it. What a menu entry or button does is shown in
/// place of the selection.
class WxStatusBar : public wxStatusBar {
public:
    explicit WxStatusBar(wxWindow* parent);

    void setNews(StatusField field, const wxString& text);
    /// An empty text brings the news back.
    void setHint(const wxString& text);

private:
    static constexpr int kFields = 4;

    void showNews();
    wxString fullText(StatusField field) const;
    wxString fitting(int field) const;
    void showToolTip(const wxPoint& point);

    std::array<wxString, kFields> news_;
    wxString hint_;
};

/// The import status panel `pnlImpStat`: floats in front of the views while a file is read.
class WxImportPanel : public wxPanel {
public:
    /// The windows in front of which it is to float must already be in `parent`.
    explicit WxImportPanel(wxWindow* parent);

    /// 0 to 99.
    void setPercent(int percent) { percent_->SetValue(percent); }
    void setShown(bool shown);
    /// Stands in the middle of its parent again.
    void recentre();

private:
    wxGauge* percent_;
};

}  // namespace trevandix
