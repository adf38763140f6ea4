#include "wx/WxButtonBar.h"

#include <algorithm>

#include "wx/WxAccessibleName.h"

namespace trevandix {

WxButtonBar::WxButtonBar(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "Toolbar1") {
    m_container.DisableSelfFocus();
    parent->Bind(wxEVT_SIZE, &WxButtonBar::onParentSize, this);
}

// Comes before the parent's own layout, which then gives the rows the height that they need.
void WxButtonBar::onParentSize(wxSizeEvent& event) {
    event.Skip();
    SetMinSize(wxSize(-1, arrange(GetParent()->GetClientSize().GetWidth())));
}

wxToolBar& WxButtonBar::addGroup() {
    auto* group = new wxToolBar(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxTB_FLAT | wxTB_HORIZONTAL | wxTB_NODIVIDER | wxTB_NOALIGN);
    setAccessibleName(*group, "Commands", "The commands that are used most");
    groups_.push_back(group);
    return *group;
}

int WxButtonBar::arrange(int width) {
    int left = 0;
    int top = 0;
    int bottom = 0;
    bool moved = false;
    for (wxToolBar* group : groups_) {
        const wxSize size = group->GetBestSize();
        if (left > 0 && left + size.GetWidth() > width) {
            left = 0;
            top = bottom;
        }
        moved = moved || group->GetPosition() != wxPoint(left, top);
        group->SetSize(wxRect(wxPoint(left, top), size));
        left += size.GetWidth();
        bottom = std::max(bottom, top + size.GetHeight());
    }
    // Windows takes along what a moved window showed, even where another one lay in front of it.
    if (moved) CallAfter([this] { GetParent()->Refresh(); });
    return bottom;
}

}  // namespace trevandix
