#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/ListContents.h"
#include "table/ChangeSet.h"

namespace trevandix {

/// Intended changes as rows of a list: first a row for each that is refused, then one for each field of the
/// others, or one if they have none.
class ChangeRows : public ListContents {
public:
    /// The changes must outlive it.
    explicit ChangeRows(std::span<const IntendedChange> changes);

    /// As wide as the texts of the first rows need, compared with each other.
    const std::vector<ListColumn>& columns() const override { return columns_; }
    std::size_t rowCount() const override { return rows_.size(); }
    std::string_view cell(std::size_t row, std::size_t column) const override;
    std::optional<std::size_t> sortColumn() const override { return std::nullopt; }
    /// All of a row, for which the columns may be too narrow.
    std::string text(std::size_t row) const;

private:
    struct Row {
        std::uint32_t change;
        std::uint32_t field;
    };
    const FieldChange* field(const Row& row) const;
    void measure();

    std::span<const IntendedChange> changes_;
    std::vector<std::string> remarks_;  // of the changes
    std::vector<Row> rows_;
    std::vector<ListColumn> columns_;
};

}  // namespace trevandix
