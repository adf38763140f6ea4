#include "platform/wx/WxParent.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/toplevel.h>

namespace trevandix {

wxWindow* dialogParent() {
    wxWindow* active = wxGetTopLevelParent(wxGetActiveWindow());
    // The innermost modal dialog is created last; anything behind it must not own a further one.
    for (auto node = wxTopLevelWindows.GetLast(); node != nullptr; node = node->GetPrevious()) {
        auto* window = dynamic_cast<wxDialog*>(node->GetData());
        if (window != nullptr && window->IsModal() && window->IsShown()) return window;
    }
    if (active != nullptr && active->IsShown()) return active;
    return wxTheApp->GetTopWindow();
}

FocusKeeper::~FocusKeeper() {
    if (focused_ && focused_->IsShownOnScreen() && focused_->IsEnabled()) focused_->SetFocus();
}

}  // namespace trevandix
