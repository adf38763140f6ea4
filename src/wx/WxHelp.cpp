#include "wx/WxHelp.h"

#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/filename.h>
#include <wx/hyperlink.h>
#include <wx/log.h>
#include <wx/platinfo.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include "Version.h"
#include "wx/WxBasics.h"
#include "wx/WxIcons.h"
#include "wx/WxNative.h"
#include "wx/WxServices.h"

namespace trevandix {

namespace {

// Where the manual may be: beside the program when unpacked or built, in the documentation folder when
// installed.
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

namespace {

constexpr int kIconSize = 64;
constexpr int kGap = 8;

wxString facts(const wxString& parserName) {
    const wxPlatformInfo& platform = wxPlatformInfo::Get();
    wxString text = "Version " + toWx(kVersion) + "\n";
    if (!kCommit.empty()) text += "Built from " + toWx(kCommit) + ", " + toWx(kDate) + "\n";
    text += wxString(wxVERSION_STRING) + ", " + platform.GetPortIdName() + " " +
            wxString::Format("%d.%d", platform.GetToolkitMajorVersion(), platform.GetToolkitMinorVersion());
    return text + "\n" + parserName + "\n" + wxGetOsDescription();
}

void addLink(wxWindow* parent, wxSizer& column, const wxString& text, const wxString& address,
             const wxString& description) {
    if (text.empty()) return;
    auto* link = new wxHyperlinkCtrl(parent, wxID_ANY, text, address);
    setAccessibleName(*link, {}, description);
    column.Add(link, wxSizerFlags());
}

}  // namespace

WxAboutBox::WxAboutBox(wxWindow* parent, const wxString& parserName)
    : wxDialog(parent, wxID_ANY, "About " + toWx(kProduct)), facts_(facts(parserName)) {
    SetIcons(programIcons());
    const int gap = FromDIP(kGap);
    auto* texts = new wxBoxSizer(wxVERTICAL);
    auto* title = new wxStaticText(this, wxID_ANY, toWx(kProduct));
    title->SetFont(title->GetFont().Bold().Larger());
    texts->Add(title, wxSizerFlags().Border(wxBOTTOM, gap));
    texts->Add(new wxStaticText(this, wxID_ANY, facts_), wxSizerFlags().Border(wxBOTTOM, gap));
    texts->Add(new wxStaticText(this, wxID_ANY, toWx(kCompany)), wxSizerFlags());
    addLink(this, *texts, toWx(kContactUrl), toWx(kContactUrl), "Opens the maker's pages");
    addLink(this, *texts, toWx(kContactMail), "mailto:" + toWx(kContactMail), "Begins a mail to the maker");
    auto* manual = new wxHyperlinkCtrl(this, wxID_ANY, "Manual (F1)", "manual");
    manual->Bind(wxEVT_HYPERLINK, [](wxHyperlinkEvent&) { showManual(); });
    setAccessibleName(*manual, {}, "Opens the manual");
    texts->Add(manual, wxSizerFlags());

    auto* row = new wxBoxSizer(wxHORIZONTAL);
    auto* icon = new wxStaticBitmap(this, wxID_ANY, iconBundle("app", kIconSize));
    setAccessibleName(*icon, "Icon", "The program's icon");
    row->Add(icon, wxSizerFlags().Top());
    row->Add(texts, wxSizerFlags(1).Border(wxLEFT, 2 * gap));
    auto* copyButton = new wxButton(this, wxID_ANY, "&Copy");
    copyButton->SetToolTip("Copies all of this, for a mail to the maker");
    copyButton->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { copy(); });
    auto* ok = new wxButton(this, wxID_OK, "&Ok");
    setAccessibleName(*ok, {}, "Closes the window");
    ok->SetDefault();
    SetEscapeId(wxID_OK);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(copyButton, wxSizerFlags().Border(wxRIGHT, gap));
    buttons->Add(ok);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(row, wxSizerFlags(1).Expand().Border(wxALL, 2 * gap));
    column->Add(buttons, wxSizerFlags().Right().Border(wxALL, 2 * gap));
    SetSizerAndFit(column);
    CentreOnParent();
    Bind(wxEVT_CHAR_HOOK, [](wxKeyEvent& event) { event.Skip(!followsManualKey(event)); });
    ok->SetFocus();
}

void WxAboutBox::copy() const {
    const wxClipboardLocker locker;
    if (!locker) return;
    const wxString text = toWx(kProduct) + "\n" + facts_ + "\n" + toWx(kCompany) + "\n" + toWx(kContactUrl) +
                          "\n" + toWx(kContactMail) + "\n";
    wxTheClipboard->SetData(new wxTextDataObject(text));
    wxTheClipboard->Flush();  // keeps the text when the program ends
}

}  // namespace trevandix
