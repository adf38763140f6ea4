#include "wx/WxIcons.h"

#include <wx/bitmap.h>
#include <wx/icon.h>
#include <wx/image.h>
#include <wx/settings.h>
#include <wx/version.h>

#include <algorithm>
#include <string>

#include "Icons.h"

namespace trevandix {

namespace {

constexpr std::string_view kEmptyDrawing =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24"></svg>)";

wxBitmapBundle drawing(std::string_view name, int size) {
    const std::string_view known = iconSvg(name);
    const std::string svg(known.empty() ? kEmptyDrawing : known);
    return wxBitmapBundle::FromSVG(svg.c_str(), wxSize(size, size));
}

#if defined(__WXGTK__) && !wxCHECK_VERSION(3, 2, 3)
// wxGTK before 3.2.3 multiplies the colours by alpha once too often, which draws dark edges.
wxBitmap withTrueColours(const wxBitmap& bitmap) {
    wxImage image = bitmap.ConvertToImage();
    if (!image.HasAlpha()) return bitmap;
    unsigned char* colour = image.GetData();
    const unsigned char* alpha = image.GetAlpha();
    const int pixels = image.GetWidth() * image.GetHeight();
    for (int pixel = 0; pixel < pixels; ++pixel, colour += 3) {
        if (alpha[pixel] == 0) continue;
        for (int part = 0; part < 3; ++part) {
            colour[part] = static_cast<unsigned char>(std::min(255, colour[part] * 255 / alpha[pixel]));
        }
    }
    return wxBitmap(image);
}

wxBitmap bitmapAt(const wxBitmapBundle& bundle, int pixels) {
    return withTrueColours(bundle.GetBitmap(wxSize(pixels, pixels)));
}
#else
wxBitmap bitmapAt(const wxBitmapBundle& bundle, int pixels) {
    return bundle.GetBitmap(wxSize(pixels, pixels));
}
#endif

template <typename Change>
wxBitmapBundle changedBundle(const wxBitmapBundle& bundle, int size, Change change) {
    wxVector<wxBitmap> scaled;
    for (const int percent : {100, 150, 200})
        scaled.push_back(change(bitmapAt(bundle, size * percent / 100)));
    return wxBitmapBundle::FromBitmaps(scaled);
}

}  // namespace

wxBitmapBundle iconBundle(std::string_view name, int size) {
    const wxBitmapBundle bundle = drawing(name, size);
#if defined(__WXGTK__) && !wxCHECK_VERSION(3, 2, 3)
    return changedBundle(bundle, size, [](const wxBitmap& bitmap) { return bitmap; });
#else
    return bundle;
#endif
}

#ifdef __WXGTK__
wxBitmapBundle fadedIconBundle(std::string_view, int) {
    return {};
}
#else
// Blends towards the background instead of using transparency: some toolbars support only opaque and fully
// transparent pixels.
wxBitmapBundle fadedIconBundle(std::string_view name, int size) {
    const unsigned char brightness =
        wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE).GetLuminance() < 0.5 ? 0 : 255;
    return changedBundle(drawing(name, size), size, [&](const wxBitmap& bitmap) {
        return wxBitmap(bitmap.ConvertToImage().ConvertToDisabled(brightness));
    });
}
#endif

wxIconBundle programIcons() {
    const wxBitmapBundle bundle = drawing("app", 48);
    wxIconBundle icons;
    for (const int pixels : {16, 24, 32, 48, 64, 128, 256}) {
        wxIcon icon;
        icon.CopyFromBitmap(bitmapAt(bundle, pixels));
        icons.AddIcon(icon);
    }
    return icons;
}

int WxImageList::indexOf(std::string_view name) {
    if (name.empty()) return -1;
    const auto place = std::ranges::find(names_, name);
    if (place != names_.end()) return static_cast<int>(place - names_.begin());
    names_.emplace_back(name);
    const std::string inViews = "tree-" + std::string(name);
    bundles_.push_back(iconBundle(iconSvg(inViews).empty() ? name : inViews, size_));
    return static_cast<int>(names_.size()) - 1;
}

}  // namespace trevandix
