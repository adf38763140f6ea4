#pragma once

#include <wx/grid.h>

#include <string>
#include <vector>

#include "wx/WxLayoutScaling.h"

namespace trevandix {

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

    WxLayoutScaling scaling_;
};

}  // namespace trevandix
