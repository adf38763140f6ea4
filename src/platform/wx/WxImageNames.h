#pragma once

#include <wx/bmpbndl.h>
#include <wx/vector.h>

#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

/// The images of a tree or list, looked up by name and drawn the first time they are asked for.
class WxImageNames {
public:
    /// `prefix` stands before each name in the icon family; `size` in device-independent pixels.
    WxImageNames(std::string_view prefix, int size) : prefix_(prefix), size_(size) {}

    /// Position in `bundles`; -1 for an empty name.
    int indexOf(std::string_view name);
    const wxVector<wxBitmapBundle>& bundles() const { return bundles_; }

private:
    std::string prefix_;
    int size_;
    std::vector<std::string> names_;
    wxVector<wxBitmapBundle> bundles_;
};

}  // namespace trevandix
