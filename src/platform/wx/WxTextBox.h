#pragma once

#include <wx/textctrl.h>

#include "platform/Form.h"

namespace trevandix {

/// A one-line text box that stays free of the characters that its filter discards, whether they are typed,
/// pasted or dropped. What the program itself puts there stays as it is.
class WxTextBox : public wxTextCtrl {
public:
    WxTextBox(wxWindow* parent, KeyFilter filter);

    void setText(const wxString& text);

    struct Outcome {
        wxString text;
        long caret;
    };
    /// What becomes of `after`, which the user made of `before`: only what was inserted is filtered.
    static Outcome applied(KeyFilter filter, const wxString& before, const wxString& after);

private:
    void onChar(wxKeyEvent& event);
    void onText(wxCommandEvent& event);

    KeyFilter filter_;
    wxString before_;
};

}  // namespace trevandix
