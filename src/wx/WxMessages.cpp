#include "wx/WxMessages.h"

#include <wx/msgdlg.h>
// After it: needs its types.
#include <wx/generic/msgdlgg.h>

#include <memory>

#include "Version.h"
#ifdef __WXGTK__
#include "wx/WxGtkFunction.h"
#endif
#include "wx/WxParent.h"
#include "wx/WxText.h"

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

#ifdef __WXGTK__
// The toolkit's boxes are as wide as their texts, which may cut the title. wx makes them only when they are
// shown, too late to set their width.
void widenBoxes(int width) {
    static auto* const newStyle = gtkFunction<void*()>("gtk_css_provider_new");
    static auto* const setRules =
        gtkFunction<int(void*, const char*, long, void*)>("gtk_css_provider_load_from_data");
    static auto* const screen = gtkFunction<void*()>("gdk_screen_get_default");
    static auto* const addStyle =
        gtkFunction<void(void*, void*, unsigned)>("gtk_style_context_add_provider_for_screen");
    if (newStyle == nullptr || setRules == nullptr || screen == nullptr || addStyle == nullptr) return;
    constexpr unsigned kPriorityOfApplications = 600;
    void* const style = newStyle();
    const wxString rules = wxString::Format("messagedialog > box { min-width: %dpx; }", width);
    setRules(style, rules.utf8_str(), -1, nullptr);
    addStyle(screen(), style, kPriorityOfApplications);
}
#endif

std::unique_ptr<wxMessageDialogBase> makeBox(const wxString& text, long style) {
    const wxString title = toWx(kProduct);
#ifdef __WXGTK__
    const int width = widthForTitle(*dialogParent(), title);
    // GTK's own box never draws the icon that it is asked for.
    if ((style & wxICON_MASK) != wxICON_NONE) {
        auto box = std::make_unique<wxGenericMessageDialog>(dialogParent(), text, title, style);
        box->Bind(wxEVT_INIT_DIALOG, [width, dialog = box.get()](wxInitDialogEvent& event) {
            event.Skip();
            wxSize size = dialog->GetClientSize();
            size.IncTo(wxSize(width, 0));
            dialog->SetClientSize(size);
        });
        return box;
    }
    [[maybe_unused]] static const bool once = (widenBoxes(width), true);
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
