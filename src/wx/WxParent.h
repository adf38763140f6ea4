#pragma once

#include <type_traits>  // wx/weakref.h needs it and does not include it

#include <wx/weakref.h>
#include <wx/window.h>

namespace trevandix {

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
