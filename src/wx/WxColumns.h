#pragma once

#include <wx/grid.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/Proportions.h"

namespace trevandix {

/// Keeps the parts of a window in proportion when its width changes. Sizers place the controls; this is for
/// what they leave alone, such as the columns of a list.
class WxColumnScaling {
public:
    struct Parts {
        std::function<std::vector<int>()> widths;
        std::function<void(const std::vector<int>&)> resize;
        /// The least widths, for the user to read what is in them; none when empty.
        std::function<std::vector<int>()> least{};
    };

    /// Lives as long as the window.
    WxColumnScaling(wxWindow& window, Parts parts);

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

/// Cells to look at, with a header row.
class WxGrid : public wxGrid {
public:
    explicit WxGrid(wxWindow* parent);

    /// The first row is the header. Columns fit their texts, as far as the screen allows.
    void setCells(const std::vector<std::vector<std::string>>& rows);

private:
    void fit();
    int neededWidth(int column) const;
    std::vector<int> widths() const;
    void setWidths(const std::vector<int>& widths);

    WxColumnScaling scaling_;
};

}  // namespace trevandix
