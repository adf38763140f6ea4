#pragma once

#include <wx/textctrl.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/Form.h"

namespace trevandix {

/// Filters what the user types, pastes or drops into a text box or an editable list with `entered`. Input of
/// which nothing is left changes neither text nor selection.
class WxTextBox {
public:
    /// `window` and `entry` are the same control; it must not raise events once this is gone.
    WxTextBox(wxWindow& window, wxTextEntry& entry, KeyFilter filter);

    std::string text() const;
    /// What the program itself puts there is not filtered.
    void setText(std::string_view text);

private:
    /// A text with what is selected in it.
    struct Marked {
        wxString text;
        long from;
        long to;
    };
    void onChar(wxKeyEvent& event);
    void onText(wxCommandEvent& event);
    void put(const Marked& marked);
    void finishKey();

    wxWindow& window_;
    wxTextEntry& entry_;
    KeyFilter filter_;
    BoxText stored_;
    wxString before_;
    std::optional<Marked> erased_;  ///< what the present key has deleted
    bool refused_ = false;          ///< the present key writes a character that is discarded
};

}  // namespace trevandix
