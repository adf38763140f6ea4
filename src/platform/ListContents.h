#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

struct ListColumn {
    std::string header;
    double width = 0;  ///< fraction of the list's width; 0 for the default width
};

/// Selection, focus and scroll position, as row numbers.
struct ListPlace {
    std::vector<std::size_t> selected;  ///< ascending
    std::optional<std::size_t> focused;
    std::optional<std::size_t> top{};  ///< first visible row; none in modes without lines
    int left = 0;                      ///< horizontal scroll position, in the display's own unit
};

/// What a list with columns shows. The list asks for the rows that it draws.
class ListContents {
public:
    virtual ~ListContents() = default;
    virtual const std::vector<ListColumn>& columns() const = 0;
    virtual std::size_t rowCount() const = 0;
    /// Columns count from 0. Empty if the row has no such cell.
    virtual std::string_view cell(std::size_t row, std::size_t column) const = 0;
    /// Name in the tree's image list; static storage. Empty for none.
    virtual std::string_view icon(std::size_t) const { return {}; }
    /// The column by which the rows are sorted.
    virtual std::optional<std::size_t> sortColumn() const = 0;
};

}  // namespace trevandix
