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

// "holding register 20", or why an item has no place in its table.
std::string placeText(const StoredType& type, const clsItem& item) {
    const ItemPlace place{item.nAddress(), item.nBitNumber()};
    const Span span = spanOf(*type.table, *type.value, place, item.nElements());
    if (!span.empty()) {
        const bool beyond = span.end > wholeOf(*type.table).end;
        return shownPlace(*type.table, span, type.value->bitwise()) +
               (beyond ? ", beyond the end of the table" : "");
    }
    std::string text = std::string(type.table->label) + ' ' + std::to_string(place.address);
    if (type.table->registers && type.value->bitwise()) text += " bit " + std::to_string(place.bit);
    text += " has no place: ";
    if (place.address < 0 || place.address > kLastAddress)
        return text + "addresses are 0 to " + std::to_string(kLastAddress);
    return text + (type.value->elements && item.nElements() < 1 ? "no elements" : "bits are 0 to 15");
}

}  // namespace

std::string titleText(const TableMap& table) {
    std::string text(table.table->label);
    text += ": " + std::to_string(table.usedAddresses) + " used, ";
    text += std::to_string(table.addresses() - table.usedAddresses) + " free";
    const std::size_t overlaps = table.overlaps.size();
    if (overlaps > 0) text += ", " + counted(overlaps, "overlap", "overlaps");
    if (!table.largestFree.empty())
        text += "\nlargest free stretch " + std::to_string(table.largestFree.length()) + " (" +
                range(table.largestFree) + ")";
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
        text += placeText(type, *record) + ", " + std::string(type.value->label);
        if (type.value->elements) text += " of " + std::to_string(record->nElements());
    } else {
        text += record->sDataType().empty() ? "no type" : record->sDataType() + ", an unknown type";
    }
    text += ", " + record->sAccessRight();
    if (!record->sComment().empty()) text += '\n' + record->sComment();
    return text;
}

}  // namespace trevandix
