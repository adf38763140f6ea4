#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace trevandix {

/// UTF-8 to the toolkit's text. Bytes that are no UTF-8 are taken as Latin-1, so that nothing vanishes.
inline wxString toWx(std::string_view text) {
    wxString result = wxString::FromUTF8(text.data(), text.size());
    if (result.empty() && !text.empty()) result = wxString(text.data(), wxConvISO8859_1, text.size());
    return result;
}

/// The toolkit's text to UTF-8.
inline std::string fromWx(const wxString& text) {
    const wxScopedCharBuffer bytes = text.utf8_str();
    return {bytes.data(), bytes.length()};
}

}  // namespace trevandix
