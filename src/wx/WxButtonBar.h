#pragma once

#include <wx/panel.h>
#include <wx/toolbar.h>

#include <vector>

namespace trevandix {

/// A toolbar whose groups of buttons go on in a further row where the window is too narrow for all of them.
class WxButtonBar : public wxPanel {
public:
    /// A sizer of `parent` gives it its place, over the whole width.
    explicit WxButtonBar(wxWindow* parent);

    /// A new group behind the others. Its owner adds the buttons and calls `Realize`.
    wxToolBar& addGroup();

private:
    void onParentSize(wxSizeEvent& event);
    /// Places the groups; returns the height that they need.
    int arrange(int width);

    std::vector<wxToolBar*> groups_;
};

}  // namespace trevandix
