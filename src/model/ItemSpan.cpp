#include "model/ItemSpan.h"

namespace trevandix {

StoredType::StoredType(const std::string& dataType) {
    if (displayTypeLabel(fileTypeName(dataType)) != dataType) return;
    table = tableOf(splitDataType(dataType).table);
    value = valueTypeIn(dataType);
}

Span spanOf(const ModbusTable& table, const ValueType& value, ItemPlace place, std::int64_t elements) {
    const std::int64_t count = value.elements ? elements : 1;
    if (count < 1 || place.address < 0 || place.address > kLastAddress) return {};
    if (!table.registers) return {place.address, place.address + count};
    const std::int64_t begin = std::int64_t{place.address} * kRegisterBits;
    if (value.bitwise())
        return isBit(place.bit) ? Span{begin + place.bit, begin + place.bit + count} : Span();
    const std::int64_t registers = (count * value.bits + kRegisterBits - 1) / kRegisterBits;
    return {begin, begin + registers * kRegisterBits};
}

std::string shownPlace(const ModbusTable& table, const Span& span, bool bits) {
    const std::int64_t unit = unitsPerAddress(table);
    const std::int64_t first = span.begin / unit;
    const std::int64_t last = (span.end - 1) / unit;
    std::string text(table.label);
    text += ' ' + std::to_string(first);
    const std::string lastBit = std::to_string((span.end - 1) % unit);
    const bool namesBits = table.registers && bits;
    if (namesBits) {
        text += (last > first || span.length() == 1 ? " bit " : " bits ") + std::to_string(span.begin % unit);
        if (last == first && span.length() > 1) text += " to " + lastBit;
    }
    if (last > first) text += " to " + std::to_string(last) + (namesBits ? " bit " + lastBit : "");
    return text;
}

}  // namespace trevandix
