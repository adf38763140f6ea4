#include "wx/WxFileDrop.h"

#include "wx/WxText.h"
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

namespace trevandix {

namespace {

void bringToFront(wxTopLevelWindow& window) {
#ifdef __WXMSW__
    // Windows lets only the active program raise its windows, and that is the one that the file came from. It
    // refuses none to go above all others and back among them.
    for (const HWND place : {HWND_TOPMOST, HWND_NOTOPMOST})
        ::SetWindowPos(static_cast<HWND>(window.GetHandle()), place, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
#endif
    window.Raise();
}

}  // namespace

// Opening may ask questions, in front of the window that the file came from; the other program must not wait
// for them with the mouse in its hands.
bool WxFileDrop::OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) {
    if (files.empty() || gate_.busy()) return false;
    bringToFront(window_);
    gate_.post(WxInputGate::Kind::Single,
               [path = fromWx(files.front())](MainWindowEvents& events) { events.fileDropped(path); });
    return true;
}

}  // namespace trevandix
