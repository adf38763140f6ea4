#pragma once

#include <wx/grid.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/Proportions.h"

namespace trevandix {

/// Keeps the columns of a control in proportion when its width changes.
class WxColumnScaling {
public:
    struct Parts {
        std::function<std::vector<int>()> widths;
        std::function<void(const std::vector<int>&)> resize;
        /// Widths at which the header texts are readable. Optional.
        std::function<std::vector<int>()> least{};
    };

    /// Must live as long as the window.
    WxColumnScaling(wxWindow& window, Parts parts);

    /// Makes the present widths, in a window of this width, the ones to keep in proportion. Before the first
    /// call nothing is scaled. Pass the full width, including scroll bars, which may come and go while
    /// scaling.
    void keep(int windowWidth);
    /// Same, with other widths than the present ones.
    void keep(const std::vector<int>& widths, int windowWidth) { proportions_.keep(widths, windowWidth); }

private:
    void scale();

    wxWindow& window_;
    Parts parts_;
    Proportions proportions_;
};

/// Read-only cells with a header row.
class WxGrid : public wxGrid {
public:
    explicit WxGrid(wxWindow* parent);

    /// The first row is the header. Columns are made as wide as their texts, as far as the screen allows.
    void setCells(const std::vector<std::vector<std::string>>& rows);

private:
    void fit();
    int neededWidth(int column) const;
    std::vector<int> widths() const;
    void setWidths(const std::vector<int>& widths);

    WxColumnScaling scaling_;
};

}  // namespace trevandix
