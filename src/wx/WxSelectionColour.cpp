#include "wx/WxSelectionColour.h"

#ifdef __WXGTK__
#include <wx/dc.h>
#include <wx/renderer.h>
#include <wx/settings.h>
#endif

namespace trevandix {

#ifdef __WXGTK__

namespace {

// Grey as light as the colour of selections, so that their text can be read on it in every theme.
wxColour inactiveColour() {
    const wxColour active = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    unsigned char red = active.Red();
    unsigned char green = active.Green();
    unsigned char blue = active.Blue();
    wxColour::MakeGrey(&red, &green, &blue);
    return {red, green, blue};
}

class Renderer : public wxDelegateRendererNative {
public:
    Renderer() : wxDelegateRendererNative(wxRendererNative::GetDefault()) {}

    void DrawItemSelectionRect(wxWindow* window, wxDC& dc, const wxRect& rect, int flags) override {
        if ((flags & wxCONTROL_FOCUSED) != 0 || (flags & wxCONTROL_SELECTED) == 0)
            return wxDelegateRendererNative::DrawItemSelectionRect(window, dc, rect, flags);
        const wxDCPenChanger pen(dc, *wxTRANSPARENT_PEN);
        const wxDCBrushChanger brush(dc, inactiveColour());
        dc.DrawRectangle(rect);
    }
};

}  // namespace

void tellInactiveSelections() {
    wxRendererNative::Get();  // the first call would put the toolkit's own in the place of ours
    delete wxRendererNative::Set(new Renderer);
}

#else

void tellInactiveSelections() {}

#endif

}  // namespace trevandix
