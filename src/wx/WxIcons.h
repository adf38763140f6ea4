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

/// A drawing of the icon family, crisp at every display scale. `size` in device-independent pixels.
/// Unknown names give an empty square, so that rows and buttons keep their places.
wxBitmapBundle iconBundle(std::string_view name, int size);
/// The same for what cannot be used at the moment; none where the toolkit itself sees to that.
wxBitmapBundle fadedIconBundle(std::string_view name, int size);

/// The program's icon in the sizes that title bars and task lists ask for.
wxIconBundle programIcons();

/// The images of a tree or list, looked up by name and drawn the first time they are asked for.
class WxImageList {
public:
    /// `size` in device-independent pixels.
    explicit WxImageList(int size) : size_(size) {}

    /// Position in `bundles`; -1 for an empty name. The drawing is the one made for trees and lists where
    /// there is one: those of the toolbar show what a command does, such as adding.
    int indexOf(std::string_view name);
    const wxVector<wxBitmapBundle>& bundles() const { return bundles_; }

private:
    int size_;
    std::vector<std::string> names_;
    wxVector<wxBitmapBundle> bundles_;
};

}  // namespace trevandix
