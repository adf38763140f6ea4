#include "platform/wx/WxManual.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include "Version.h"
#include "platform/wx/WxParent.h"
#include "platform/wx/WxText.h"

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
    for (const wxString& place : places()) {
        const wxLogNull oneMessageOnly;
        if (wxFileName::FileExists(place) && wxLaunchDefaultBrowser(wxFileName::FileNameToURL(place))) return;
        looked += "\n" + place;
    }
    const FocusKeeper focus;
    wxMessageBox("The manual could not be opened. It was looked for at:" + looked, toWx(kProduct),
                 wxOK | wxICON_EXCLAMATION, dialogParent());
}

bool followsManualKey(const wxKeyEvent& event) {
    const bool asked = event.GetKeyCode() == WXK_F1 && event.GetModifiers() == 0;
    if (asked) showManual();
    return asked;
}

}  // namespace trevandix
