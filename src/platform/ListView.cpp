#include "platform/ListView.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/Text.h"

namespace trevandix {

ListView::Update::~Update() {
    if (--list_.updates_ == 0 && list_.dirty_) list_.changed();
}

void ListView::aboutToChange() {
    if (dirty_) return;
    dirty_ = true;
    kept_.reset();
    if (display_ == nullptr || rows_.empty()) return;
    Kept kept;
    kept.place = display_->place();
    for (const std::size_t row : kept.place.selected) kept.selected.insert(rows_.at(row).key);
    if (kept.place.focused) kept.focused = rows_.at(*kept.place.focused).key;
    if (kept.place.top && *kept.place.top < rows_.size()) kept.top = rows_[*kept.place.top].key;
    kept_ = std::move(kept);
}

void ListView::changed() {
    if (updates_ > 0) return;
    dirty_ = false;
    if (sorted_) sortRows();
    if (display_ == nullptr) return;
    display_->contentsChanged(std::exchange(columnsChanged_, false), keptPlace());
}

// If the focused or topmost row has been removed, the row at its position replaces it.
std::optional<ListPlace> ListView::keptPlace() {
    if (!kept_ || rows_.empty()) return std::nullopt;
    const Kept kept = *std::exchange(kept_, std::nullopt);
    const std::size_t last = rows_.size() - 1;
    ListPlace place;
    if (kept.place.focused) place.focused = std::min(*kept.place.focused, last);
    if (kept.place.top) place.top = std::min(*kept.place.top, last);
    place.left = kept.place.left;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const std::string& key = rows_[row].key;
        if (kept.selected.contains(key)) place.selected.push_back(row);
        if (kept.place.focused && key == kept.focused) place.focused = row;
        if (kept.place.top && key == kept.top) place.top = row;
    }
    return place;
}

void ListView::begin(std::string_view subject) {
    const Update update(*this);
    aboutToChange();
    if (subject_ != subject) kept_.reset();
    subject_ = subject;
    rows_.clear();
    columns_.clear();
    columnsChanged_ = true;
    changed();
}

void ListView::clear() {
    begin({});
    subject_.reset();
}

void ListView::addColumn(std::string_view header, double width) {
    aboutToChange();
    columns_.push_back({std::string(header), width});
    columnsChanged_ = true;
    changed();
}

void ListView::addRow(ListRow row) {
    aboutToChange();
    rows_.push_back(std::move(row));
    changed();
}

std::string_view ListView::cell(std::size_t row, std::size_t column) const {
    const ListRow& line = rows_[row];
    if (column == 0) return line.text;
    return column <= line.subItems.size() ? std::string_view(line.subItems[column - 1]) : std::string_view();
}

void ListView::changeKey(std::string_view from, std::string_view to) {
    const auto row = std::ranges::find(rows_, from, &ListRow::key);
    if (row != rows_.end()) row->key = to;
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
    aboutToChange();
    mode_ = mode;
    changed();
}

void ListView::setVisible(bool visible) {
    visible_ = visible;
    if (display_ != nullptr) display_->setVisible(visible);
}

void ListView::sortBy(std::size_t column) {
    aboutToChange();
    sortKey_ = column;
    sorted_ = true;
    changed();
}

void ListView::setSorted(bool sorted) {
    aboutToChange();
    sorted_ = sorted;
    changed();
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
