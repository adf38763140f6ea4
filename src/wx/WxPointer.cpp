#include "wx/WxPointer.h"

#include <wx/bmpbndl.h>
#include <wx/image.h>
#include <wx/utils.h>

#include <string>

namespace trevandix {

namespace {

constexpr const char* kArrowAndSheet =
    R"(<path d="M12 12h14v14h-14z" fill="#e7edf4" stroke="#41566f" stroke-width="2"/>)"
    R"(<path d="M15 17h8v1.5h-8zM15 21h8v1.5h-8z" fill="#2f80d0"/>)"
    R"(<path d="M2 2v16l4-4 3 7 3-1.4-3-6.6h6z" fill="#ffffff" stroke="#000000" stroke-width="1.2"/>)";
constexpr const char* kPlus =
    R"(<path d="M20 20h11v11h-11z" fill="#2c9c57"/><path d="M24.7 22h1.6v3h3v1.6h-3v3h-1.6v-3h-3v-1.6h3z" fill="#ffffff"/>)";

// An arrow that carries a sheet of paper; drawn here because systems do not agree on such a pointer.
wxCursor dragCursor(bool copies) {
    std::string svg =
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">)";
    svg += kArrowAndSheet;
    if (copies) svg += kPlus;
    svg += "</svg>";
    const wxSize size(32, 32);
    wxImage image = wxBitmapBundle::FromSVG(svg.c_str(), size).GetBitmap(size).ConvertToImage();
    image.SetOption(wxIMAGE_OPTION_CUR_HOTSPOT_X, 2);
    image.SetOption(wxIMAGE_OPTION_CUR_HOTSPOT_Y, 2);
    return wxCursor(image);
}

}  // namespace

WxPointer::~WxPointer() {
    if (busy_) wxEndBusyCursor();
}

void WxPointer::set(Pointer pointer) {
    if (pointer_ == pointer) return;
    pointer_ = pointer;
    show();
}

void WxPointer::show() {
    const bool busy = pointer_ == Pointer::Hourglass;
    if (busy_ && !busy) wxEndBusyCursor();
    if (!busy_ && busy) wxBeginBusyCursor();
    busy_ = busy;
    if (!busy) wxSetCursor(pointer_ == Pointer::Icon ? dragCursor(false) : wxNullCursor);
}

void WxPointer::showDrag(Drag drag) {
    dragCursor_ = drag == Drag::Refused ? wxCursor(wxCURSOR_NO_ENTRY) : dragCursor(drag == Drag::Copy);
    wxSetCursor(dragCursor_);
}

void WxPointer::endDrag() {
    dragCursor_ = wxNullCursor;
    show();
}

}  // namespace trevandix
