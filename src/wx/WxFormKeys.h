#pragma once

#include <wx/dialog.h>

#include <deque>
#include <functional>
#include <string_view>

#include "wx/WxControl.h"

namespace trevandix {

/// What keys do in a form: Enter and Escape, access keys, arrows among options, function keys and undo of the
/// main window.
class WxFormKeys {
public:
    /// `close` is for Escape in a form without a cancel button. All must outlive this.
    WxFormKeys(wxDialog& dialog, const FormSpec& shape, std::deque<WxControl>& controls,
               std::function<void()> close)
        : dialog_(dialog), spec_(shape), controls_(controls), close_(std::move(close)) {}

    void onKey(wxKeyEvent& event);
    /// To be called when the focus has moved.
    void markDefaultButton();

private:
    /// nullptr for no such control.
    const WxControl* named(std::string_view name) const;
    void onEscape();
    bool chooseByArrow(const wxKeyEvent& event);
    bool pressFromKeyboard(const WxControl* button);
    const WxControl* buttonForEnter() const;
    bool followAccessKey(const wxKeyEvent& event);

    wxDialog& dialog_;
    const FormSpec& spec_;
    std::deque<WxControl>& controls_;
    std::function<void()> close_;
};

}  // namespace trevandix
