#pragma once

#include <type_traits>  // wx/weakref.h needs it but does not include it

#include <wx/string.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <string>
#include <string_view>

namespace trevandix {

/// Converts UTF-8 to wx's string. Text that is not valid UTF-8 is read as Latin-1, so that none is lost.
inline wxString toWx(std::string_view text) {
    wxString result = wxString::FromUTF8(text.data(), text.size());
    if (result.empty() && !text.empty()) result = wxString(text.data(), wxConvISO8859_1, text.size());
    return result;
}

/// Converts wx's string to UTF-8.
inline std::string fromWx(const wxString& text) {
    const wxScopedCharBuffer bytes = text.utf8_str();
    return {bytes.data(), bytes.length()};
}

/// Increments a counter for the lifetime of this object.
class ScopedIncrement {
public:
    explicit ScopedIncrement(int& counter) : counter_(counter) { ++counter_; }
    ~ScopedIncrement() { --counter_; }
    ScopedIncrement(const ScopedIncrement&) = delete;
    ScopedIncrement& operator=(const ScopedIncrement&) = delete;

private:
    int& counter_;
};

/// The parent for a new modal dialog: the active window, else the main window. nullptr when there is none.
wxWindow* dialogParent();

/// The least client width, in pixels, of a window that shows this title uncut.
int widthForTitle(const wxWindow& window, const wxString& title);

/// Returns the keyboard focus, on destruction, to the control that had it on construction.
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
