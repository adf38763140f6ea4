#pragma once

#include <wx/string.h>

#include <set>

namespace trevandix {

/// Gives captions access keys that do not clash within one form.
class WxAccessKeys {
public:
    /// Reserves the key that a caption marks with "&" itself.
    void reserve(const wxString& caption);
    /// The caption with a free letter marked, of the words' first letters if one is free; as it is when it
    /// has a mark already or none is free. `previous` is the key that the control gives back, 0 for none.
    wxString marked(const wxString& caption, wxChar previous = 0);

    /// The letter behind "&", in upper case; 0 without.
    static wxChar keyOf(const wxString& caption);

private:
    std::set<wxChar> used_;
};

}  // namespace trevandix
