#pragma once

#include <wx/dnd.h>

#include "platform/wx/WxInputGate.h"

namespace trevandix {

/// Takes files that are dropped from the file manager; the first of several counts.
class WxFileDrop : public wxFileDropTarget {
public:
    /// `gate` must outlive it.
    explicit WxFileDrop(WxInputGate& gate) : gate_(gate) {}

    bool OnDropFiles(wxCoord x, wxCoord y, const wxArrayString& files) override;

private:
    WxInputGate& gate_;
};

}  // namespace trevandix
