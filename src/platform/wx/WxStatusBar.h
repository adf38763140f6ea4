#pragma once

#include <wx/statusbr.h>

#include <array>

#include "platform/MainWindow.h"

namespace trevandix {

/// The status bar: one field for each kind of news. While a menu is open, what its entries do takes the whole
/// width.
class WxStatusBar : public wxStatusBar {
public:
    explicit WxStatusBar(wxWindow* parent);

    void setNews(StatusField field, const wxString& text);
    /// An empty text brings the news back.
    void setHint(const wxString& text);

private:
    static constexpr int kFields = 4;

    void showNews();

    std::array<wxString, kFields> news_;
    bool hinting_ = false;
};

}  // namespace trevandix
