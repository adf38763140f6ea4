#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Configuration.h"
#include "table/Csv.h"

namespace trevandix {

/// A table of objects of one kind, as it was read.
struct Table {
    NodeTag kind;  ///< Item, Plc or DataType
    /// By column of the kind (`kItemColumns` and so on): its place in a row; nothing where the table lacks
    /// it.
    std::vector<std::optional<std::size_t>> places;
    std::vector<std::string> unknownColumns;  ///< their headers; they are ignored
    std::vector<CsvRow> rows;                 ///< without the header and rows whose cells are all empty

    /// The cell of a column; nullptr where the table lacks the column. A short row has empty cells at its
    /// end.
    const std::string* cell(const CsvRow& row, std::size_t column) const;
};

/// Reads a table as `readCsv` does. "Unit" or "Branch" in its header makes it items, "Read Code" data types,
/// else units; case and blanks of headers do not matter. Errors: TableFormat, as `readCsv`, and for a table
/// without header or "Name", or with a column twice.
Table readTable(std::string_view bytes);

/// The table of everything of the kind at and below the nodes, in the order of the tree, with its header;
/// each node once. What has no record, or lies outside all units that a file would hold, is left out.
std::vector<Cells> exportTable(const Configuration& configuration, NodeTag kind,
                               std::span<const TreeNode* const> tops);
/// Of the whole configuration.
std::vector<Cells> exportTable(const Configuration& configuration, NodeTag kind);

}  // namespace trevandix
