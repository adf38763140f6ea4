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
    /// `size` in device-independent pixels.
    explicit WxImageNames(int size) : size_(size) {}

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
