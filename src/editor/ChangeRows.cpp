#include "editor/ChangeRows.h"

#include <algorithm>
#include <array>

namespace trevandix {

namespace {

enum Column : std::size_t { kObject, kField, kOld, kNew, kRemark };

std::string remarkOf(const IntendedChange& change) {
    if (change.refused()) {
        const std::string line = change.line == 0 ? "" : ", line " + std::to_string(change.line);
        return "Refused" + line + ": " + change.refusal;
    }
    if (!change.adds) return change.remark;
    return change.remark.empty() ? "Added" : "Added, " + change.remark;
}

}  // namespace

ChangeRows::ChangeRows(std::span<const IntendedChange> changes) : changes_(changes) {
    remarks_.reserve(changes.size());
    for (std::uint32_t i = 0; i < changes.size(); ++i) {
        remarks_.push_back(remarkOf(changes[i]));
        if (changes[i].refused()) rows_.push_back({i, 0});
    }
    for (std::uint32_t i = 0; i < changes.size(); ++i) {
        const std::size_t rows =
            changes[i].refused() ? 0 : std::max<std::size_t>(changes[i].fields.size(), 1);
        for (std::uint32_t field = 0; field < rows; ++field) rows_.push_back({i, field});
    }
    measure();
}

void ChangeRows::measure() {
    constexpr std::array<std::string_view, 5> kHeaders{"Object", "Field", "Old", "New", "Remark"};
    constexpr std::size_t kRows = 1000;
    constexpr std::size_t kGap = 3;
    constexpr std::size_t kLeast = 8;
    constexpr std::size_t kMost = 40;
    constexpr double kTogether = 0.99;  // of the list
    std::size_t sum = 0;
    std::array<std::size_t, kHeaders.size()> longest{};
    for (std::size_t column = 0; column < kHeaders.size(); ++column) {
        for (std::size_t row = 0; row < std::min(rows_.size(), kRows); ++row)
            longest[column] = std::max(longest[column], cell(row, column).size());
        sum += longest[column] = std::clamp(longest[column] + kGap, kLeast, kMost);
    }
    for (std::size_t column = 0; column < kHeaders.size(); ++column) {
        const double share = static_cast<double>(longest[column]) / static_cast<double>(sum);
        columns_.push_back({std::string(kHeaders[column]), share * kTogether});
    }
}

// A refused row stands for all fields of its object; it shows the field if there is only one.
const FieldChange* ChangeRows::field(const Row& row) const {
    const IntendedChange& change = changes_[row.change];
    const bool shown = change.refused() ? change.fields.size() == 1 : !change.fields.empty();
    return shown ? &change.fields[row.field] : nullptr;
}

std::string_view ChangeRows::cell(std::size_t row, std::size_t column) const {
    const Row& at = rows_[row];
    if (column == kObject) return changes_[at.change].object;
    if (column == kRemark) return at.field == 0 ? std::string_view(remarks_[at.change]) : std::string_view();
    const FieldChange* change = field(at);
    if (change == nullptr) return {};
    return column == kField ? change->header : column == kOld ? change->before : change->after;
}

std::string ChangeRows::text(std::size_t row) const {
    const Row& at = rows_[row];
    std::string text = changes_[at.change].object;
    if (const FieldChange* change = field(at)) {
        text.append(", ").append(change->header).append(": ");
        if (!changes_[at.change].adds) text.append(change->before).append(" -> ");
        text.append(change->after);
    }
    return remarks_[at.change].empty() ? text : text.append(". ").append(remarks_[at.change]);
}

}  // namespace trevandix
