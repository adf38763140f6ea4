#include "wx/WxClipboard.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include "wx/WxText.h"

namespace trevandix {

std::string WxClipboard::text() {
    const wxClipboardLocker locker;
    if (!locker) return {};
    wxTextDataObject data;
    return wxTheClipboard->GetData(data) ? fromWx(data.GetText()) : std::string();
}

}  // namespace trevandix
