#include "platform/wx/WxMessages.h"

#include <wx/msgdlg.h>
// After it: needs its types.
#include <wx/generic/msgdlgg.h>

#include <memory>

#include "Version.h"
#include "platform/wx/WxParent.h"
#include "platform/wx/WxText.h"

namespace trevandix {

namespace {

long styleOf(Buttons buttons, Icon icon) {
    long style = wxOK;
    if (buttons == Buttons::YesNo) style = wxYES_NO;
    if (buttons == Buttons::NoYes) style = wxYES_NO | wxNO_DEFAULT;
    if (buttons == Buttons::YesNoCancel) style = wxYES_NO | wxCANCEL;
    if (icon == Icon::Exclamation) return style | wxICON_EXCLAMATION;
    if (icon == Icon::Critical) return style | wxICON_ERROR;
    return style | wxICON_NONE;
}

// GTK breaks lines between words only, and a name may be wider than the screen.
wxString breakable(const wxString& text) {
#ifdef __WXGTK__
    constexpr int kLongWord = 40;
    const wxUniChar possibleBreak(0x200B);
    wxString result;
    int length = 0;
    for (const wxUniChar c : text) {
        length = c == ' ' || c == '\n' ? 0 : length + 1;
        result += c;
        if (length > 0 && length % kLongWord == 0) result += possibleBreak;
    }
    return result;
#else
    return text;
#endif
}

std::unique_ptr<wxMessageDialogBase> makeBox(const wxString& text, long style) {
    const wxString title = toWx(kProduct);
#ifdef __WXGTK__
    // GTK's own box never draws the icon that it is asked for.
    if ((style & wxICON_MASK) != wxICON_NONE)
        return std::make_unique<wxGenericMessageDialog>(dialogParent(), text, title, style);
#endif
    return std::make_unique<wxMessageDialog>(dialogParent(), text, title, style);
}

}  // namespace

Answer WxMessages::show(std::string_view text, Buttons buttons, Icon icon) {
    const FocusKeeper focus;
    const std::unique_ptr<wxMessageDialogBase> box = makeBox(breakable(toWx(text)), styleOf(buttons, icon));
    while (true) {
        switch (box->ShowModal()) {
            case wxID_YES:
                return Answer::Yes;
            case wxID_NO:
                return Answer::No;
            default:
                // Escape is no answer to a question of Yes and No: either would be a guess that may lose
                // work.
                if (buttons == Buttons::YesNo || buttons == Buttons::NoYes) continue;
                return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
        }
    }
}

}  // namespace trevandix
