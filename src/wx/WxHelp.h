#pragma once

#include <wx/dialog.h>
#include <wx/event.h>

namespace trevandix {

/// Opens the manual in the system's browser; where that fails, a box says why and names the file.
void showManual();

/// True when the key asks for the manual, which then has been opened.
bool followsManualKey(const wxKeyEvent& event);

/// Who made the program, which version it is, what it was made with, and where to ask. A button copies all of
/// it for a mail to the maker.
class WxAboutBox : public wxDialog {
public:
    /// `parserName`: name and version of the XML parser.
    WxAboutBox(wxWindow* parent, const wxString& parserName);

private:
    void copy() const;

    wxString facts_;  // version and components, one a line
};

}  // namespace trevandix
