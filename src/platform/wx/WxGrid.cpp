#include "platform/wx/WxGrid.h"

#include <wx/display.h>
#include <wx/settings.h>

#include <algorithm>

#include "platform/wx/WxText.h"

namespace trevandix {

namespace {

constexpr int kMostRowsShown = 15;
constexpr double kMostOfScreen = 0.6;
constexpr int kCellMargin = 16;

}  // namespace

WxGrid::WxGrid(wxWindow* parent)
    : wxGrid(parent, wxID_ANY),
      scaling_(*this, {[this] { return widths(); }, [this](const auto& wanted) { setWidths(wanted); }}) {
    CreateGrid(0, 0, wxGridSelectRows);
    EnableEditing(false);
    HideRowLabels();
    DisableDragRowSize();
    SetTabBehaviour(Tab_Leave);
    SetColLabelAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
    Bind(wxEVT_GRID_COL_SIZE, [this](wxGridSizeEvent&) { scaling_.keep(GetSize().GetWidth()); });
}

void WxGrid::setCells(const std::vector<std::vector<std::string>>& rows) {
    BeginBatch();
    if (GetNumberRows() > 0) DeleteRows(0, GetNumberRows());
    if (GetNumberCols() > 0) DeleteCols(0, GetNumberCols());
    if (!rows.empty()) {
        AppendCols(static_cast<int>(rows.front().size()));
        AppendRows(static_cast<int>(rows.size()) - 1);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (std::size_t column = 0; column < rows[row].size(); ++column) {
                const int at = static_cast<int>(column);
                const wxString text = toWx(rows[row][column]);
                if (row == 0)
                    SetColLabelValue(at, text);
                else
                    SetCellValue(static_cast<int>(row) - 1, at, text);
            }
        }
    }
    fit();
    EndBatch();
}

void WxGrid::fit() {
    const int most = static_cast<int>(wxDisplay(this).GetClientArea().GetWidth() * kMostOfScreen);
    const int widest = most / std::max(1, GetNumberCols());
    int width = 0;
    for (int column = 0; column < GetNumberCols(); ++column) {
        int needed = GetTextExtent(GetColLabelValue(column)).GetWidth();
        for (int row = 0; row < GetNumberRows(); ++row) {
            needed = std::max(needed, GetTextExtent(GetCellValue(row, column)).GetWidth());
        }
        SetColSize(column, std::min(needed + FromDIP(kCellMargin), widest));
        width += GetColSize(column);
    }
    const int rows = std::clamp(GetNumberRows(), 1, kMostRowsShown);
    const int bar = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this);
    SetMinSize(wxSize(width + bar + FromDIP(kCellMargin),
                      GetColLabelSize() + rows * GetDefaultRowSize() + FromDIP(4)));
    scaling_.keep(GetMinSize().GetWidth());
}

std::vector<int> WxGrid::widths() const {
    std::vector<int> result;
    for (int column = 0; column < GetNumberCols(); ++column) result.push_back(GetColSize(column));
    return result;
}

void WxGrid::setWidths(const std::vector<int>& widths) {
    for (std::size_t column = 0; column < widths.size(); ++column)
        SetColSize(static_cast<int>(column), widths[column]);
}

}  // namespace trevandix
