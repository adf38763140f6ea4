#include "wx/WxNative.h"

#ifdef __WXGTK__
#include <dlfcn.h>
#include <poll.h>
#include <wx/dc.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <string>

#include "Version.h"
#elif defined(__WXMSW__)
#include <wx/msw/wrapwin.h>
// These need the types of wrapwin.h, and initguid.h makes oleacc.h define the property identifiers.
#include <initguid.h>
#include <oleacc.h>
#include <shlobj.h>
#include <wx/msw/private/comptr.h>
#endif

namespace trevandix {

#ifdef __WXGTK__

namespace {

// A function of GTK, which wx has loaded into the program; nullptr when there is none of this name.
template <typename Function>
Function* gtkFunction(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

void setTexts(void* widget, const wxString& name, const wxString& description) {
    static auto* const accessibleOf = gtkFunction<void*(void*)>("gtk_widget_get_accessible");
    static auto* const setName = gtkFunction<void(void*, const char*)>("atk_object_set_name");
    static auto* const setDescription = gtkFunction<void(void*, const char*)>("atk_object_set_description");
    if (widget == nullptr || accessibleOf == nullptr || setName == nullptr || setDescription == nullptr)
        return;
    void* accessible = accessibleOf(widget);
    if (accessible == nullptr) return;
    if (!name.empty()) setName(accessible, name.utf8_str());
    if (!description.empty()) setDescription(accessible, description.utf8_str());
}

// Grey of the same lightness as the selection colour, so that the text stays readable in every theme.
wxColour inactiveColour() {
    const wxColour active = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    unsigned char red = active.Red();
    unsigned char green = active.Green();
    unsigned char blue = active.Blue();
    wxColour::MakeGrey(&red, &green, &blue);
    return {red, green, blue};
}

class Renderer : public wxDelegateRendererNative {
public:
    Renderer() : wxDelegateRendererNative(wxRendererNative::GetDefault()) {}

    void DrawItemSelectionRect(wxWindow* window, wxDC& dc, const wxRect& rect, int flags) override {
        if ((flags & wxCONTROL_FOCUSED) != 0 || (flags & wxCONTROL_SELECTED) == 0)
            return wxDelegateRendererNative::DrawItemSelectionRect(window, dc, rect, flags);
        const wxDCPenChanger pen(dc, *wxTRANSPARENT_PEN);
        const wxDCBrushChanger brush(dc, inactiveColour());
        dc.DrawRectangle(rect);
    }
};

}  // namespace

void setAccessibleName(wxWindow& window, const wxString& name, const wxString& description) {
    setTexts(window.GetHandle(), name, description);
    // A control that wx draws itself, and a text of several lines, has its focus in an inner widget.
    for (void* inner : {static_cast<void*>(window.m_wxwindow), static_cast<void*>(window.m_focusWidget)})
        setTexts(inner, name, description);
}

// Older libraries have no such signal.
void announce(wxWindow& window, const wxString& text) {
    constexpr char kSignal[] = "announcement";
    static auto* const accessibleOf = gtkFunction<void*(void*)>("gtk_widget_get_accessible");
    static auto* const typeOfObjects = gtkFunction<std::size_t()>("atk_object_get_type");
    static auto* const lookUp = gtkFunction<unsigned(const char*, std::size_t)>("g_signal_lookup");
    static auto* const emit = gtkFunction<void(void*, const char*, ...)>("g_signal_emit_by_name");
    if (accessibleOf == nullptr || typeOfObjects == nullptr || lookUp == nullptr || emit == nullptr) return;
    if (lookUp(kSignal, typeOfObjects()) == 0) return;
    emit(accessibleOf(window.GetHandle()), kSignal, static_cast<const char*>(text.utf8_str()));
}

void setAccessibleDescription(const wxMenuItem& entry) {
    setTexts(entry.GetMenuItem(), {}, entry.GetHelp());
}

void greyInactiveSelections() {
    wxRendererNative::Get();  // creates the default renderer, which would otherwise replace ours later
    delete wxRendererNative::Set(new Renderer);
}

void addToRecentFiles(const wxString& path) {
    struct Data {  // as GtkRecentData of every GTK 3
        const char* name;
        const char* description;
        const char* type;
        const char* program;
        const char* command;
        const char* const* groups;
        int isPrivate;
    };
    static auto* const list = gtkFunction<void*()>("gtk_recent_manager_get_default");
    static auto* const add = gtkFunction<int(void*, const char*, const Data*)>("gtk_recent_manager_add_full");
    static auto* const toUri = gtkFunction<char*(const char*, const char*, void*)>("g_filename_to_uri");
    static auto* const release = gtkFunction<void(void*)>("g_free");
    if (list == nullptr || add == nullptr || toUri == nullptr || release == nullptr) return;
    // Type and command are those of the desktop entry.
    const std::string product(kProduct);
    const std::string command = std::string(kProgram) + " %f";
    const Data data{
        nullptr, nullptr, "application/x-trevandix-configuration", product.c_str(), command.c_str(),
        nullptr, 0};
    char* const uri = toUri(path.fn_str(), nullptr, nullptr);
    if (uri != nullptr) add(list(), uri, &data);
    release(uri);
}

// Asks the connection to the display: what waits in GTK's own loop may also be a timer. GDK does not know
// whether a Wayland connection has news, so this looks at its file.
bool inputWaits() {
    static auto* const waits = gtkFunction<int()>("gdk_events_pending");
    if (waits != nullptr && waits() != 0) return true;
    static auto* const displayOf = gtkFunction<void*()>("gdk_display_get_default");
    static auto* const typeOf = gtkFunction<std::size_t()>("gdk_wayland_display_get_type");
    static auto* const isOf = gtkFunction<int(void*, std::size_t)>("g_type_check_instance_is_a");
    static auto* const connectionOf = gtkFunction<void*(void*)>("gdk_wayland_display_get_wl_display");
    static auto* const fileOf = gtkFunction<int(void*)>("wl_display_get_fd");
    if (displayOf == nullptr || typeOf == nullptr || isOf == nullptr || connectionOf == nullptr ||
        fileOf == nullptr)
        return false;
    void* const display = displayOf();
    if (display == nullptr || isOf(display, typeOf()) == 0) return false;
    pollfd file{fileOf(connectionOf(display)), POLLIN, 0};
    return poll(&file, 1, 0) > 0;
}

// A GTK message box is as wide as its text, which may cut the title. wx creates the box only when it shows
// it, too late to set its width, so a style rule sets it for all boxes.
void setMessageBoxWidth(int width) {
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

#else

void announce(wxWindow&, const wxString&) {}
void greyInactiveSelections() {}
void setMessageBoxWidth(int) {}
#ifdef __WXMSW__
bool inputWaits() {
    answerOthers();
    return HIWORD(::GetQueueStatus(QS_INPUT)) != 0;
}
#else
bool inputWaits() {
    return false;
}
#endif

#endif

#ifdef __WXMSW__

// Adds to what Windows finds out itself, such as the label in front of a field.
void setAccessibleName(wxWindow& window, const wxString& name, const wxString& description) {
    wxCOMPtr<IAccPropServices> services;
    if (FAILED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                  reinterpret_cast<void**>(&services))))
        return;
    const auto set = [&](const GUID& property, const wxString& text) {
        if (!text.empty())
            services->SetHwndPropStr(window.GetHandle(), static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                     property, text.wc_str());
    };
    set(PROPID_ACC_NAME, name);
    set(PROPID_ACC_DESCRIPTION, description);
    ::NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window.GetHandle(), OBJID_CLIENT, CHILDID_SELF);
}

void setAccessibleDescription(const wxMenuItem&) {}  // the status bar shows it

void addToRecentFiles(const wxString& path) {
    ::SHAddToRecentDocs(SHARD_PATHW, path.wc_str());
}

// Windows lets only the active program raise its windows, but lets every program make a window topmost. To
// make it topmost and normal again leaves it in front.
void bringToFront(wxTopLevelWindow& window) {
    for (const HWND place : {HWND_TOPMOST, HWND_NOTOPMOST})
        ::SetWindowPos(static_cast<HWND>(window.GetHandle()), place, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    window.Raise();
}

// wx never sets this style, without which Windows lets a window draw over siblings in front of it.
void clipSiblings(wxWindow& window) {
    const auto handle = static_cast<HWND>(window.GetHandle());
    ::SetWindowLongPtr(handle, GWL_STYLE, ::GetWindowLongPtr(handle, GWL_STYLE) | WS_CLIPSIBLINGS);
}

void answerOthers() {
    MSG message;
    ::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

void setHiddenRedraw(wxWindow& window, bool redraw) {
    if (window.IsShown()) return;
    ::SendMessage(window.GetHandle(), WM_SETREDRAW, redraw, 0);
    ::ShowWindow(window.GetHandle(), SW_HIDE);  // WM_SETREDRAW may show the window
}

#else

void bringToFront(wxTopLevelWindow& window) {
    window.Raise();
}

void answerOthers() {}  // X11 and Wayland ask nothing
void clipSiblings(wxWindow&) {}
void setHiddenRedraw(wxWindow&, bool) {}

#endif

#if !defined(__WXGTK__) && !defined(__WXMSW__)

void setAccessibleName(wxWindow&, const wxString&, const wxString&) {}
void setAccessibleDescription(const wxMenuItem&) {}
void addToRecentFiles(const wxString&) {}

#endif

}  // namespace trevandix
