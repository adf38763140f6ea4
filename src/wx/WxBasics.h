#pragma once

#include <type_traits>  // wx/weakref.h needs it and does not include it

#include <wx/string.h>
#include <wx/weakref.h>
#include <wx/window.h>

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

/// Counts one more while it lives: how many of something are under way.
class WxRaised {
public:
    explicit WxRaised(int& counter) : counter_(counter) { ++counter_; }
    ~WxRaised() { --counter_; }
    WxRaised(const WxRaised&) = delete;
    WxRaised& operator=(const WxRaised&) = delete;

private:
    int& counter_;
};

/// The window that a modal dialog stands in front of: the active one, else the main window. nullptr before
/// there is one.
wxWindow* dialogParent();

/// How wide the inside of a window must be for its title not to be cut.
int widthForTitle(const wxWindow& window, const wxString& title);

/// Gives the keyboard back, at the end of its life, to the control that had it.
class FocusKeeper {
public:
    FocusKeeper() : focused_(wxWindow::FindFocus()) {}
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

private:
    wxWeakRef<wxWindow> focused_;
};

}  // namespace trevandix
