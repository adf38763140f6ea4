#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>
#include <wx/vector.h>

#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

inline constexpr int kToolbarIconSize = 24;
inline constexpr int kTreeIconSize = 16;
inline constexpr int kLargeIconSize = 32;

/// An icon as a bundle of bitmaps for all display scales. `size` in device-independent pixels. An unknown
/// name gives an empty square, so that rows and buttons keep their places.
wxBitmapBundle iconBundle(std::string_view name, int size);
/// The icon of a disabled button; empty where the toolkit draws it itself.
wxBitmapBundle fadedIconBundle(std::string_view name, int size);

/// The program's icon in the sizes used by title bars and task lists.
wxIconBundle programIcons();

/// The images of a tree or list, looked up by name and drawn on first use.
class WxImageList {
public:
    /// `size` in device-independent pixels.
    explicit WxImageList(int size) : size_(size) {}

    /// Index into `bundles`, or -1 for an empty name. Prefers the drawing "tree-<name>": the toolbar's
    /// version may show an action such as adding.
    int indexOf(std::string_view name);
    const wxVector<wxBitmapBundle>& bundles() const { return bundles_; }

private:
    int size_;
    std::vector<std::string> names_;
    wxVector<wxBitmapBundle> bundles_;
};

}  // namespace trevandix
