#include "wx/WxManual.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include "Version.h"
#include "wx/WxMessages.h"
#include "wx/WxText.h"

namespace trevandix {

namespace {

// Beside the program when it was unpacked or built, in the documents' folder when it was installed.
wxArrayString places() {
    const wxString program = wxFileName(wxStandardPaths::Get().GetExecutablePath()).GetPath();
    wxArrayString result;
    for (const wxString& folder : {wxString("manual"), "../share/doc/" + toWx(kProgram)}) {
        wxFileName file(program + "/" + folder + "/manual.html");
        file.Normalize(wxPATH_NORM_DOTS | wxPATH_NORM_ABSOLUTE);
        result.push_back(file.GetFullPath());
    }
    return result;
}

}  // namespace

void showManual() {
    wxString looked;
    wxString found;
    for (const wxString& place : places()) {
        looked += "\n" + place;
        if (!wxFileName::FileExists(place)) continue;
        const wxLogNull oneMessageOnly;
        if (wxLaunchDefaultBrowser(wxFileName::FileNameToURL(place))) return;
        found += "\n" + place;
    }
    const wxString text = found.empty() ? "The manual was not found. It was looked for at:" + looked
                                        : "No program opens the manual. Open this file in a browser:" + found;
    WxMessages().show(fromWx(text), Buttons::Ok, Icon::None);
}

bool followsManualKey(const wxKeyEvent& event) {
    const bool asked = event.GetKeyCode() == WXK_F1 && event.GetModifiers() == 0;
    if (asked) showManual();
    return asked;
}

}  // namespace trevandix
