#include "wx/WxBasics.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/toplevel.h>

namespace trevandix {

namespace {

constexpr int kTitleButtons = 130;  // icon and buttons beside the title, in device-independent pixels

}  // namespace

wxWindow* dialogParent() {
    wxWindow* active = wxGetTopLevelParent(wxGetActiveWindow());
    // The innermost modal dialog was created last. It disables all windows behind it, so it must be the
    // parent.
    for (auto node = wxTopLevelWindows.GetLast(); node != nullptr; node = node->GetPrevious()) {
        auto* window = dynamic_cast<wxDialog*>(node->GetData());
        if (window != nullptr && window->IsModal() && window->IsShown()) return window;
    }
    if (active != nullptr && active->IsShown()) return active;
    return wxTheApp->GetTopWindow();
}

// Some window managers use a larger font for titles than for text.
int widthForTitle(const wxWindow& window, const wxString& title) {
    return window.GetTextExtent(title).GetWidth() * 3 / 2 + window.FromDIP(kTitleButtons);
}

FocusKeeper::~FocusKeeper() {
    if (focused_ && focused_->IsShownOnScreen() && focused_->IsEnabled()) focused_->SetFocus();
}

}  // namespace trevandix
