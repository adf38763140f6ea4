#include "platform/wx/WxIcons.h"

#include <wx/bitmap.h>
#include <wx/icon.h>
#include <wx/image.h>
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
// These versions multiply the colours by their alpha once too often, which draws dark edges.
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

}  // namespace

wxBitmapBundle iconBundle(std::string_view name, int size) {
    const wxBitmapBundle bundle = drawing(name, size);
#if defined(__WXGTK__) && !wxCHECK_VERSION(3, 2, 3)
    wxVector<wxBitmap> scaled;
    for (const int percent : {100, 150, 200}) scaled.push_back(bitmapAt(bundle, size * percent / 100));
    return wxBitmapBundle::FromBitmaps(scaled);
#else
    return bundle;
#endif
}

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

}  // namespace trevandix
