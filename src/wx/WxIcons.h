#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

#include <string_view>

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

}  // namespace trevandix
