#include "map/MapWording.h"

#include <algorithm>

#include "platform/Text.h"

namespace trevandix {

namespace {

std::string_view unitName(const TableMap& table) {
    return table.table->registers ? " registers" : " bits";
}

std::string range(const Span& addresses) {
    const std::string first = std::to_string(addresses.begin);
    return addresses.length() == 1 ? first : first + " to " + std::to_string(addresses.end - 1);
}

}  // namespace

std::string titleText(const TableMap& table) {
    std::string text(table.table->label);
    text += ": " + std::to_string(table.usedAddresses) + " used, ";
    text += std::to_string(table.addresses() - table.usedAddresses) + " free";
    if (!table.largestFree.empty())
        text += ", largest free stretch " + std::to_string(table.largestFree.length()) + " (" +
                range(table.largestFree) + ")";
    const std::size_t overlaps = table.overlaps.size();
    if (overlaps > 0) text += ", " + counted(overlaps, "overlap", "overlaps");
    return text;
}

std::string freeText(const TableMap& table, std::int64_t place) {
    const auto gap = std::ranges::upper_bound(table.free, place, {}, &Span::end);
    const Span whole = table.wholeAddresses(*gap);
    return "free: " + std::to_string(whole.length()) + std::string(unitName(table)) + ", " + range(whole);
}

std::string itemText(const Configuration& configuration, const Key& item) {
    const auto record = configuration.items.find(item);
    if (record == nullptr) return item.str();
    const StoredType type(record->sDataType());
    std::string text = item.str() + '\n';
    if (type.known()) {
        const Span span =
            spanOf(*type.table, *type.value, {record->nAddress(), record->nBitNumber()}, record->nElements());
        text += (span.empty() ? std::string(type.table->label)
                              : shownPlace(*type.table, span, type.value->bitwise())) +
                ", " + std::string(type.value->label);
        if (type.value->elements) text += " of " + std::to_string(record->nElements());
    } else {
        text += record->sDataType();
    }
    text += ", " + record->sAccessRight();
    if (!record->sComment().empty()) text += '\n' + record->sComment();
    return text;
}

}  // namespace trevandix
