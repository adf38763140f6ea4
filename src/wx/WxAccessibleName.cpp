#include "wx/WxAccessibleName.h"

#ifdef __WXGTK__
#include <wx/menuitem.h>

#include "wx/WxGtkFunction.h"
#elif defined(__WXMSW__)
#include <wx/msw/wrapwin.h>
// After it: needs its types, and holds the numbers of the properties only when told so.
#include <initguid.h>
#include <oleacc.h>
#include <wx/msw/private/comptr.h>
#endif

namespace trevandix {

#ifdef __WXGTK__

namespace {

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

}  // namespace

void setAccessibleName(wxWindow& window, const wxString& name, const wxString& description) {
    setTexts(window.GetHandle(), name, description);
    // What has the keyboard in a control that wx draws itself.
    if (window.m_wxwindow != nullptr) setTexts(window.m_wxwindow, name, description);
}

void setAccessibleDescription(const wxMenuItem& entry) {
    setTexts(entry.GetMenuItem(), {}, entry.GetHelp());
}

#elif defined(__WXMSW__)

// Notes beside what Windows finds out itself, such as the label in front of a field.
void setAccessibleName(wxWindow& window, const wxString& name, const wxString& description) {
    wxCOMPtr<IAccPropServices> notes;
    if (FAILED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                  reinterpret_cast<void**>(&notes))))
        return;
    const auto note = [&](const GUID& property, const wxString& text) {
        if (!text.empty())
            notes->SetHwndPropStr(window.GetHandle(), static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                  property, text.wc_str());
    };
    note(PROPID_ACC_NAME, name);
    note(PROPID_ACC_DESCRIPTION, description);
}

void setAccessibleDescription(const wxMenuItem&) {}  // the status bar says it

#else

void setAccessibleName(wxWindow&, const wxString&, const wxString&) {}
void setAccessibleDescription(const wxMenuItem&) {}

#endif

}  // namespace trevandix
