#pragma once

#include <wx/splitter.h>

#include <functional>
#include <vector>

#include "platform/Proportions.h"

namespace trevandix {

/// Keeps the parts of a window in proportion when its width changes. Sizers place the controls; this is for
/// what they leave alone, such as the columns of a list.
class WxLayoutScaling {
public:
    struct Parts {
        std::function<std::vector<int>()> widths;
        std::function<void(const std::vector<int>&)> resize;
        /// The least widths, for the user to read what is in them; none when empty.
        std::function<std::vector<int>()> least{};
    };

    /// Lives as long as the window.
    WxLayoutScaling(wxWindow& window, Parts parts);

    /// The present widths belong to a window of this width and are those to be kept in proportion. Nothing is
    /// scaled before the first call. The width is that with scroll bars: they come and go with the scaling.
    void keep(int windowWidth);
    /// The same with other widths than the present ones.
    void keep(const std::vector<int>& widths, int windowWidth) { proportions_.keep(widths, windowWidth); }

private:
    void scale();

    wxWindow& window_;
    Parts parts_;
    Proportions proportions_;
};

/// Lets the sash stand at a share of the width, 0 to 1, until its user moves it; then at the user's share.
void keepSashInProportion(wxSplitterWindow& splitter, double share);

}  // namespace trevandix
