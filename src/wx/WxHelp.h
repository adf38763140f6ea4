#pragma once

#include <wx/dialog.h>
#include <wx/event.h>

namespace trevandix {

/// Opens the manual in the default browser. On failure a message box gives the reason and the file.
void showManual();

/// Opens the manual if the key is F1. True when it is.
bool followsManualKey(const wxKeyEvent& event);

/// The About box: version, components, maker and contact. A button copies all of it as text.
class WxAboutBox : public wxDialog {
public:
    /// `parserName`: name and version of the XML parser.
    WxAboutBox(wxWindow* parent, const wxString& parserName);

private:
    void copy() const;

    wxString facts_;  // version and components, one per line
};

}  // namespace trevandix
