#pragma once

#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>

#include <array>
#include <functional>
#include <optional>

#include "editor/MainWindow.h"

namespace trevandix {

/// The status bar, with one field for each StatusField. A field shows the first line of its text, shortened
/// in the middle if it is too long; the tooltip shows the whole text. The hint of a menu entry or button is
/// shown instead of the selection.
class WxStatusBar : public wxStatusBar {
public:
    using Clicked = std::function<void(StatusField field)>;
    WxStatusBar(wxWindow* parent, Clicked clicked);

    void setNews(StatusField field, const wxString& text);
    /// An empty text removes the hint.
    void setHint(const wxString& text);

private:
    static constexpr int kFields = 5;

    void showSoon();
    void showNews();
    wxString fullText(StatusField field) const;
    wxString fitting(int field) const;
    std::optional<StatusField> fieldAt(const wxPoint& point) const;
    void showToolTip(const wxPoint& point);

    bool stale_ = false;  ///< true while new texts wait to be shown all at once
    std::array<wxString, kFields> news_;
    wxString hint_;
};

/// The import status panel `pnlImpStat`, shown in front of the views while a file or a table is read.
class WxImportPanel : public wxPanel {
public:
    /// The windows behind it must already be children of `parent`.
    explicit WxImportPanel(wxWindow* parent);

    /// 0 to 99.
    void setPercent(int percent) { percent_->SetValue(percent); }
    /// Shows it with `text` in `lblLabel`.
    void show(const wxString& text);
    /// Moves it to the middle of its parent.
    void recentre();

private:
    wxStaticText* label_;
    wxGauge* percent_;
};

}  // namespace trevandix
