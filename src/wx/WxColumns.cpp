#include "wx/WxColumns.h"

#include <wx/display.h>
#include <wx/settings.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "wx/WxBasics.h"

namespace trevandix {

WxColumnScaling::WxColumnScaling(wxWindow& window, Parts parts) : window_(window), parts_(std::move(parts)) {
    window_.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        scale();
    });
}

void WxColumnScaling::keep(int windowWidth) {
    keep(parts_.widths(), windowWidth);
}

void WxColumnScaling::scale() {
    std::vector<int> wanted = proportions_.scaled(window_.GetSize().GetWidth());
    if (parts_.least) wanted = widened(std::move(wanted), parts_.least(), window_.GetClientSize().GetWidth());
    if (wanted.size() == parts_.widths().size() && wanted != parts_.widths()) parts_.resize(wanted);
}

namespace {

constexpr int kMostRowsShown = 15;
constexpr int kRowsBeside = 3;  // height of header, buttons and title, in rows
constexpr double kMostOfScreen = 0.75;
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

int WxGrid::neededWidth(int column) const {
    const auto extent = [this](const wxString& text, const wxFont& font) {
        int width = 0;
        GetTextExtent(text, &width, nullptr, nullptr, nullptr, &font);
        return width;
    };
    int needed = extent(GetColLabelValue(column), GetLabelFont());
    for (int row = 0; row < GetNumberRows(); ++row)
        needed = std::max(needed, extent(GetCellValue(row, column), GetDefaultCellFont()));
    return needed + FromDIP(kCellMargin);
}

void WxGrid::fit() {
    const wxSize screen = wxDisplay(this).GetClientArea().GetSize();
    std::vector<int> columns;
    for (int column = 0; column < GetNumberCols(); ++column) columns.push_back(neededWidth(column));
    columns = capped(std::move(columns), static_cast<int>(screen.GetWidth() * kMostOfScreen));
    for (std::size_t column = 0; column < columns.size(); ++column)
        SetColSize(static_cast<int>(column), columns[column]);
    int width = std::accumulate(columns.begin(), columns.end(), 0);
    const int room = static_cast<int>(screen.GetHeight() * kMostOfScreen) / GetDefaultRowSize();
    const int rows = std::clamp(GetNumberRows(), 1, std::clamp(room - kRowsBeside, 1, kMostRowsShown));
    if (rows < GetNumberRows()) width += wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this);
    SetMinSize(wxSize(width + FromDIP(4), GetColLabelSize() + rows * GetDefaultRowSize() + FromDIP(4)));
    scaling_.keep(GetMinSize().GetWidth());
}

std::vector<int> WxGrid::widths() const {
    std::vector<int> result;
    for (int column = 0; column < GetNumberCols(); ++column) result.push_back(GetColSize(column));
    return result;
}

// Without a vertical scroll bar, the last column also takes the scroll bar's room.
void WxGrid::setWidths(const std::vector<int>& widths) {
    int rest = GetClientSize().GetWidth();
    for (std::size_t column = 0; column < widths.size(); ++column) {
        const bool last = column + 1 == widths.size();
        SetColSize(static_cast<int>(column), last ? std::max(widths[column], rest) : widths[column]);
        rest -= widths[column];
    }
}

}  // namespace trevandix
