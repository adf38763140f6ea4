#include "check/Places.h"

#include <algorithm>

namespace trevandix {

namespace {

constexpr std::int64_t kRegisterBits = 16;

std::int64_t unitOf(const ModbusTable& table) {
    return table.registers ? kRegisterBits : 1;
}

}  // namespace

std::string shownPlace(const ItemFacts& item) {
    const Span span = item.span();
    const ModbusTable& table = *item.type->modbus;
    const std::int64_t first = span.begin / unitOf(table);
    const std::int64_t last = (span.end - 1) / unitOf(table);
    std::string text(item.type->table);
    text += ' ' + std::to_string(first);
    if (table.registers && item.type->value->bitwise())
        text += " bit " + std::to_string(span.begin % kRegisterBits);
    if (last > first) text += " to " + std::to_string(last);
    return text;
}

Places::Places(const Survey& survey, const TreeNode& unit) : survey_(survey) {
    for (const ItemFacts& item : survey.items) {
        if (!item.type->known() || survey.objects[item.unit].node != &unit) continue;
        const Span span = item.span();
        if (!span.empty()) rows_[item.type->modbus].push_back({span, &item, &item, span.end});
    }
    for (auto& [table, row] : rows_) {
        std::ranges::stable_sort(row, {}, [](const Place& place) { return place.span.begin; });
        for (std::size_t i = 1; i < row.size(); ++i) {
            if (row[i - 1].end <= row[i].end) continue;
            row[i].longest = row[i - 1].longest;
            row[i].end = row[i - 1].end;
        }
    }
}

const Places::Row& Places::row(const ModbusTable& table) const {
    static const Row kEmpty;
    const auto found = rows_.find(&table);
    return found == rows_.end() ? kEmpty : found->second;
}

const ItemFacts* Places::in(const ModbusTable& table, const Span& span) const {
    const Row& places = row(table);
    const auto behind =
        std::ranges::lower_bound(places, span.end, {}, [](const Place& place) { return place.span.begin; });
    if (span.empty() || behind == places.begin() || std::prev(behind)->end <= span.begin) return nullptr;
    return std::prev(behind)->longest;
}

Places::Found Places::find(const ModbusTable& table, std::int32_t address) const {
    const Span wanted{address * unitOf(table), (std::int64_t{address} + 1) * unitOf(table)};
    const Row& places = row(table);
    const auto behind =
        std::ranges::lower_bound(places, wanted.end, {}, [](const Place& place) { return place.span.begin; });
    for (auto place = behind; place != places.begin();) {
        if ((--place)->span.end > wanted.begin) return {.at = place->item};
        if (place->end <= wanted.begin) break;
    }
    return {.before = behind == places.begin() ? nullptr : std::prev(behind)->longest,
            .behind = behind == places.end() ? nullptr : behind->item};
}

}  // namespace trevandix
