#include "platform/wx/WxAccessibleName.h"

#ifdef __WXGTK__
#include <dlfcn.h>
#endif

namespace trevandix {

#ifdef __WXGTK__

namespace {

template <typename Function>
Function* loaded(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace

// The toolkit has no call of its own for this; the libraries below it are in the program anyway.
void setAccessibleName(wxWindow& window, const wxString& name, const wxString& description) {
    static auto* const accessibleOf = loaded<void*(void*)>("gtk_widget_get_accessible");
    static auto* const setName = loaded<void(void*, const char*)>("atk_object_set_name");
    static auto* const setDescription = loaded<void(void*, const char*)>("atk_object_set_description");
    void* widget = window.GetHandle();
    if (widget == nullptr || accessibleOf == nullptr || setName == nullptr || setDescription == nullptr)
        return;
    void* accessible = accessibleOf(widget);
    if (accessible == nullptr) return;
    if (!name.empty()) setName(accessible, name.utf8_str());
    if (!description.empty()) setDescription(accessible, description.utf8_str());
}

#else

// Windows reads a field's name from the label in front of it.
void setAccessibleName(wxWindow&, const wxString&, const wxString&) {}

#endif

}  // namespace trevandix
