#include "platform/ListView.h"

#include <algorithm>
#include <numeric>

#include "platform/Text.h"

namespace trevandix {

ListView::Update::~Update() {
    if (--list_.updates_ == 0 && list_.dirty_) list_.changed();
}

void ListView::changed() {
    dirty_ = true;
    if (updates_ > 0) return;
    dirty_ = false;
    if (sorted_) sortRows();
    if (display_ != nullptr) display_->contentsChanged();
}

void ListView::clearRows() {
    rows_.clear();
    changed();
}

void ListView::clearColumns() {
    columns_.clear();
    changed();
}

void ListView::addColumn(std::string_view header, double width) {
    columns_.push_back({std::string(header), width});
    changed();
}

void ListView::addRow(ListRow row) {
    rows_.push_back(std::move(row));
    changed();
}

std::string_view ListView::cell(std::size_t row, std::size_t column) const {
    const ListRow& line = rows_[row];
    if (column == 0) return line.text;
    return column <= line.subItems.size() ? std::string_view(line.subItems[column - 1]) : std::string_view();
}

void ListView::setCell(std::size_t row, std::size_t column, std::string_view text) {
    ListRow& line = rows_.at(row);
    if (column == 0) {
        line.text = text;
    } else {
        if (line.subItems.size() < column) line.subItems.resize(column);
        line.subItems[column - 1] = text;
    }
    if (display_ != nullptr) display_->rowChanged(row);
}

void ListView::setMode(ListMode mode) {
    if (mode_ == mode) return;
    mode_ = mode;
    changed();
}

void ListView::setVisible(bool visible) {
    visible_ = visible;
    if (display_ != nullptr) display_->setVisible(visible);
}

void ListView::sortBy(std::size_t column) {
    sortKey_ = column;
    sorted_ = true;
    changed();
}

void ListView::setSorted(bool sorted) {
    sorted_ = sorted;
    if (sorted) changed();
}

void ListView::sortRows() {
    std::vector<std::size_t> order(rows_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [this](std::size_t a, std::size_t b) {
        return compareIgnoringCase(cell(a, sortKey_), cell(b, sortKey_)) < 0;
    });
    std::vector<ListRow> sorted;
    sorted.reserve(rows_.size());
    for (const std::size_t index : order) sorted.push_back(std::move(rows_[index]));
    rows_ = std::move(sorted);
}

std::vector<std::size_t> ListView::selectedRows() const {
    return display_ != nullptr ? display_->selectedRows() : std::vector<std::size_t>();
}

std::optional<std::size_t> ListView::currentRow() const {
    return display_ != nullptr ? display_->currentRow() : std::nullopt;
}

void ListView::selectAll() {
    if (display_ != nullptr) display_->selectAll();
}

}  // namespace trevandix
