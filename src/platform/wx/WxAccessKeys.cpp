#include "platform/wx/WxAccessKeys.h"

#include <wx/crt.h>

namespace trevandix {

namespace {

wxChar upper(wxUniChar character) {
    return static_cast<wxChar>(wxToupper(character));
}

bool startsWord(const wxString& text, std::size_t at) {
    return at == 0 || !wxIsalnum(text[at - 1]);
}

}  // namespace

wxChar WxAccessKeys::keyOf(const wxString& caption) {
    for (std::size_t at = 0; at + 1 < caption.length(); ++at) {
        if (caption[at] != '&') continue;
        if (caption[at + 1] != '&') return upper(caption[at + 1]);
        ++at;
    }
    return 0;
}

void WxAccessKeys::reserve(const wxString& caption) {
    if (const wxChar key = keyOf(caption)) used_.insert(key);
}

wxString WxAccessKeys::marked(const wxString& caption, wxChar previous) {
    if (previous != 0) used_.erase(previous);
    if (keyOf(caption) != 0) {
        reserve(caption);
        return caption;
    }
    for (const bool anywhere : {false, true}) {
        for (std::size_t at = 0; at < caption.length(); ++at) {
            if (!wxIsalnum(caption[at]) || !(anywhere || startsWord(caption, at))) continue;
            if (!used_.insert(upper(caption[at])).second) continue;
            return caption.Left(at) + "&" + caption.Mid(at);
        }
    }
    return caption;
}

}  // namespace trevandix
