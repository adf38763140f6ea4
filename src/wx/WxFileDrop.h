#pragma once

#include <wx/dnd.h>
#include <wx/toplevel.h>

#include "wx/WxInputGate.h"

namespace trevandix {

/// Takes files that are dropped from the file manager; the first of several counts.
class WxFileDrop : public wxFileDropTarget {
public:
    /// `window` comes to the front. Both must outlive it.
    WxFileDrop(wxTopLevelWindow& window, WxInputGate& gate) : window_(window), gate_(gate) {}

    bool OnDropFiles(wxCoord x, wxCoord y, const wxArrayString& files) override;

private:
    wxTopLevelWindow& window_;
    WxInputGate& gate_;
};

}  // namespace trevandix
