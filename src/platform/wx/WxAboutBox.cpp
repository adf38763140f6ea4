#include "platform/wx/WxAboutBox.h"

#include <wx/button.h>
#include <wx/hyperlink.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "Version.h"
#include "platform/wx/WxIcons.h"
#include "platform/wx/WxText.h"

namespace trevandix {

namespace {

constexpr int kIconSize = 64;
constexpr int kGap = 8;

void addLine(wxWindow* parent, wxSizer& column, const wxString& text) {
    column.Add(new wxStaticText(parent, wxID_ANY, text),
               wxSizerFlags().Border(wxBOTTOM, parent->FromDIP(kGap) / 2));
}

void addLink(wxWindow* parent, wxSizer& column, std::string_view text, const wxString& address) {
    if (text.empty()) return;
    column.Add(new wxHyperlinkCtrl(parent, wxID_ANY, toWx(text), address), wxSizerFlags());
}

}  // namespace

WxAboutBox::WxAboutBox(wxWindow* parent) : wxDialog(parent, wxID_ANY, "About " + toWx(kProduct)) {
    auto* texts = new wxBoxSizer(wxVERTICAL);
    auto* title = new wxStaticText(this, wxID_ANY, toWx(kProduct));
    title->SetFont(title->GetFont().Bold().Larger());
    texts->Add(title, wxSizerFlags().Border(wxBOTTOM, FromDIP(kGap)));
    addLine(this, *texts, "Version " + toWx(kVersion));
    if (!kCommit.empty()) addLine(this, *texts, "Built from " + toWx(kCommit) + ", " + toWx(kDate));
    addLine(this, *texts, toWx(kCompany));
    addLink(this, *texts, kContactUrl, toWx(kContactUrl));
    addLink(this, *texts, kContactMail, "mailto:" + toWx(kContactMail));

    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticBitmap(this, wxID_ANY, iconBundle("app", kIconSize)), wxSizerFlags().Top());
    row->Add(texts, wxSizerFlags(1).Border(wxLEFT, FromDIP(2 * kGap)));
    auto* ok = new wxButton(this, wxID_OK, "Ok");
    ok->SetDefault();
    SetEscapeId(wxID_OK);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(row, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(2 * kGap)));
    column->Add(ok, wxSizerFlags().Right().Border(wxALL, FromDIP(2 * kGap)));
    SetSizerAndFit(column);
    CentreOnParent();
    ok->SetFocus();
}

}  // namespace trevandix
