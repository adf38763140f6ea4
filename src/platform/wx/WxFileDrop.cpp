#include "platform/wx/WxFileDrop.h"

#include "platform/wx/WxText.h"

namespace trevandix {

// Opening may ask questions; the other program must not wait for them with the mouse in its hands.
bool WxFileDrop::OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) {
    if (files.empty() || gate_.busy()) return false;
    gate_.post(WxInputGate::Kind::Single,
               [path = fromWx(files.front())](MainWindowEvents& events) { events.fileDropped(path); });
    return true;
}

}  // namespace trevandix
