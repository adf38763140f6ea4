#include "platform/wx/WxFileDrop.h"

#include "platform/wx/WxText.h"

namespace trevandix {

// Opening may ask questions, in front of the window that the file came from; the other program must not wait
// for them with the mouse in its hands.
bool WxFileDrop::OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) {
    if (files.empty() || gate_.busy()) return false;
    window_.Raise();
    gate_.post(WxInputGate::Kind::Single,
               [path = fromWx(files.front())](MainWindowEvents& events) { events.fileDropped(path); });
    return true;
}

}  // namespace trevandix
