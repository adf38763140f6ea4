#pragma once

#include <wx/menuitem.h>
#include <wx/window.h>

namespace trevandix {

/// Tells screen readers what a control is for, where they cannot see it from the control itself: a field's
/// label, a list's purpose. Empty texts change nothing.
void setAccessibleName(wxWindow& window, const wxString& name, const wxString& description = {});

/// Tells them what a menu entry does: its help text. The entry must stand in a menu already.
void setAccessibleDescription(const wxMenuItem& entry);

}  // namespace trevandix
