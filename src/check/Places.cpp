#include "check/Places.h"

#include <algorithm>

namespace trevandix {

std::string shownPlace(const ItemFacts& item) {
    return shownPlace(item.table(), item.span(), item.value().bitwise());
}

Places::Places(const Survey& survey, const TreeNode& unit) : survey_(survey) {
    for (const ItemFacts& item : survey.items) {
        if (!item.type->known() || survey.objects[item.unit].node != &unit) continue;
        const Span span = item.span();
        if (!span.empty()) rows_[&item.table()].push_back({span, &item, &item, span.end});
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
    const Span wanted{address * unitsPerAddress(table), (std::int64_t{address} + 1) * unitsPerAddress(table)};
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
