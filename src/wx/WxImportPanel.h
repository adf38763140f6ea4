#pragma once

#include <wx/gauge.h>
#include <wx/panel.h>

namespace trevandix {

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
