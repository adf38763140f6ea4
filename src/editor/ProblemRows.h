#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "check/Finding.h"
#include "platform/ListContents.h"

namespace trevandix {

/// Findings as rows of a list: severity, object, text. Errors come first until the user sorts by a column.
class ProblemRows : public ListContents {
public:
    /// The selected rows and the current one. They follow their findings when rows change.
    struct Marks {
        std::vector<std::size_t> selected{};  ///< ascending
        std::size_t row = 0;
        bool gone = true;  ///< the finding is no longer there, or there was none: `row` is that behind it
    };

    /// Takes other findings, in the present order. False, with nothing changed, when `interrupted` has said
    /// so.
    bool replace(std::vector<Finding> findings, Marks& marks, const std::function<bool()>& interrupted);
    /// Sorts ascending, ignoring case. Equal rows stay in the order of the check.
    void sortBy(std::size_t column, Marks& marks);

    const Finding& at(std::size_t row) const { return findings_[order_[row]]; }
    /// The rows as lines, with a TAB between their cells.
    std::string text(std::span<const std::size_t> rows) const;
    std::string text() const;

    const std::vector<ListColumn>& columns() const override;
    std::size_t rowCount() const override { return order_.size(); }
    std::string_view cell(std::size_t row, std::size_t column) const override {
        return cellOf(at(row), column);
    }
    std::optional<std::size_t> sortColumn() const override { return sortColumn_; }

private:
    using Order = std::vector<std::uint32_t>;  // indexes of findings

    static std::string_view cellOf(const Finding& finding, std::size_t column);
    static std::optional<Order> sorted(const std::vector<Finding>& findings, std::size_t column,
                                       const std::function<bool()>& interrupted);
    void appendLine(std::string& text, std::size_t row) const;

    std::vector<Finding> findings_;
    Order order_;
    std::size_t sortColumn_ = 0;
};

}  // namespace trevandix
