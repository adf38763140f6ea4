#pragma once

#include <wx/dialog.h>

namespace trevandix {

/// Who made the program, which version it is and where to ask.
class WxAboutBox : public wxDialog {
public:
    explicit WxAboutBox(wxWindow* parent);
};

}  // namespace trevandix
