#include "wx/WxServices.h"

#include <wx/bmpbndl.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/textbuf.h>
#include <wx/utils.h>
// Needs the types of msgdlg.h.
#include <wx/generic/msgdlgg.h>

#include <memory>
#include <string>

#include "Version.h"
#include "wx/WxBasics.h"
#include "wx/WxNative.h"

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

// GTK breaks lines only between words, but a name may be wider than the screen.
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
    const int width = widthForTitle(*dialogParent(), title);
    // GTK's own message box never shows its icon.
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
    [[maybe_unused]] static const bool once = (setMessageBoxWidth(width), true);
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
                // Escape does not answer a Yes/No question: neither answer would be safe to assume.
                if (buttons == Buttons::YesNo || buttons == Buttons::NoYes) continue;
                return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
        }
    }
}

std::optional<std::string> WxFileDialog::choose(wxFileDialog& dialog) {
    const FocusKeeper focus;
    if (dialog.ShowModal() != wxID_OK) return std::nullopt;
#ifdef __WXGTK__
    folder_ = wxFileName(dialog.GetPath()).GetPath();
#endif
    return fromWx(dialog.GetPath());
}

std::optional<std::string> WxFileDialog::open(std::string_view title, std::string_view filter) {
    wxFileDialog dialog(dialogParent(), toWx(title), folder_, {}, toWx(filter),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    return choose(dialog);
}

std::optional<std::string> WxFileDialog::save(std::string_view title, std::string_view filter,
                                              std::string_view proposedName) {
    wxFileDialog dialog(dialogParent(), toWx(title), folder_, toWx(proposedName), toWx(filter), wxFD_SAVE);
    std::optional<std::string> path = choose(dialog);
    const std::size_t dot = filter.rfind('.');
    if (path && !path->empty() && dot != std::string_view::npos && !wxFileName(toWx(*path)).HasExt()) {
        path->append(filter.substr(dot));
    }
    return path;
}

std::string WxClipboard::text() {
    const wxClipboardLocker locker;
    if (!locker) return {};
    wxTextDataObject data;
    return wxTheClipboard->GetData(data) ? fromWx(data.GetText()) : std::string();
}

// Other programs look at the clipboard whenever it changes, and lock it for a moment.
bool WxClipboard::setText(std::string_view text) {
    constexpr int kTries = 10;
    constexpr int kPause = 20;  // milliseconds
    const wxLogNull silent;
    const bool native = text.find('\r') != std::string_view::npos;
    const wxString contents = native ? toWx(text) : wxTextBuffer::Translate(toWx(text));
    for (int tries = 0; tries < kTries; ++tries) {
        if (tries > 0) wxMilliSleep(kPause);
        const wxClipboardLocker locker;
        if (!locker || !wxTheClipboard->SetData(new wxTextDataObject(contents))) continue;
        wxTheClipboard->Flush();  // keeps the text when the program ends
        return true;
    }
    return false;
}

namespace {

constexpr const char* kArrowAndSheet =
    R"(<path d="M12 12h14v14h-14z" fill="#e7edf4" stroke="#41566f" stroke-width="2"/>)"
    R"(<path d="M15 17h8v1.5h-8zM15 21h8v1.5h-8z" fill="#2f80d0"/>)"
    R"(<path d="M2 2v16l4-4 3 7 3-1.4-3-6.6h6z" fill="#ffffff" stroke="#000000" stroke-width="1.2"/>)";
constexpr const char* kPlus =
    R"(<path d="M20 20h11v11h-11z" fill="#2c9c57"/><path d="M24.7 22h1.6v3h3v1.6h-3v3h-1.6v-3h-3v-1.6h3z" fill="#ffffff"/>)";

// An arrow with a sheet of paper, drawn here because systems have no common cursor for it.
wxCursor dragCursor(bool copies) {
    std::string svg =
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">)";
    svg += kArrowAndSheet;
    if (copies) svg += kPlus;
    svg += "</svg>";
    const wxSize size(32, 32);
    wxImage image = wxBitmapBundle::FromSVG(svg.c_str(), size).GetBitmap(size).ConvertToImage();
    image.SetOption(wxIMAGE_OPTION_CUR_HOTSPOT_X, 2);
    image.SetOption(wxIMAGE_OPTION_CUR_HOTSPOT_Y, 2);
    return wxCursor(image);
}

}  // namespace

WxPointer::~WxPointer() {
    if (busy_) wxEndBusyCursor();
}

void WxPointer::set(Pointer pointer) {
    if (pointer_ == pointer) return;
    pointer_ = pointer;
    show();
}

void WxPointer::show() {
    const bool busy = pointer_ == Pointer::Hourglass;
    if (busy_ && !busy) wxEndBusyCursor();
    if (!busy_ && busy) wxBeginBusyCursor();
    busy_ = busy;
    if (!busy) wxSetCursor(pointer_ == Pointer::Icon ? dragCursor(false) : wxNullCursor);
}

void WxPointer::showDrag(Drag drag) {
    dragCursor_ = drag == Drag::Refused ? wxCursor(wxCURSOR_NO_ENTRY) : dragCursor(drag == Drag::Copy);
    wxSetCursor(dragCursor_);
}

void WxPointer::endDrag() {
    dragCursor_ = wxNullCursor;
    show();
}

}  // namespace trevandix
