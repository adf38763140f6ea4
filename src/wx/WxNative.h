#pragma once

#include <wx/menuitem.h>
#include <wx/toplevel.h>
#include <wx/window.h>

namespace trevandix {

// What wxWidgets has no call for. Each function does nothing where the system needs no help.

/// Sets what a screen reader says about a control. Needed where the control itself does not tell, such as for
/// a field with a separate label. Empty texts change nothing.
void setAccessibleName(wxWindow& window, const wxString& name, const wxString& description = {});

/// Sets the help text of a menu entry as its description. The entry must already be in a menu.
void setAccessibleDescription(const wxMenuItem& entry);

/// Has a screen reader say the text now, wherever the focus is. On Windows, screen readers read the status
/// bar by themselves when the user asks.
void announce(wxWindow& window, const wxString& text);

/// Adds a file, by its absolute path, to the system's list of recent files, which the task bar of Windows and
/// the file dialogs of GTK show. The system may have been told to keep none.
void addToRecentFiles(const wxString& path);

/// Answers what other programs have asked the windows. On Windows they wait while this program is at work.
void answerOthers();

/// True when a key or the mouse waits to be handled. Quick enough to be asked every millisecond. Also answers
/// other programs.
bool inputWaits();

/// Draws the selection grey in every tree and list that does not have the focus.
void greyInactiveSelections();

/// Raises the window, on Windows even while another program is active.
void bringToFront(wxTopLevelWindow& window);

/// Keeps the window from drawing over siblings in front of it.
void clipSiblings(wxWindow& window);

/// Stops or resumes the drawing of a hidden control, on which `Freeze` has no effect.
void setHiddenRedraw(wxWindow& window, bool redraw);

/// Sets the least width of the system's message boxes, in pixels.
void setMessageBoxWidth(int width);

}  // namespace trevandix
