#pragma once

#include <cstdint>
#include <string>

#include "model/ValueTypes.h"

// What an item covers of its device's tables.

namespace trevandix {

inline constexpr std::int32_t kLastAddress = 65535;  ///< of each table

/// A part of a table: bits for the tables of registers, addresses for those of bits.
struct Span {
    std::int64_t begin = 0;
    std::int64_t end = 0;

    bool empty() const { return end <= begin; }
    std::int64_t length() const { return end - begin; }
    bool meets(const Span& other) const { return begin < other.end && other.begin < end; }
    bool operator==(const Span&) const = default;
};

/// How many units of a `Span` an address is.
constexpr std::int64_t unitsPerAddress(const ModbusTable& table) {
    return table.registers ? kRegisterBits : 1;
}

/// Table and value type of an item, both nullptr for a type that the file cannot hold or that does not come
/// back; `table` also for a table that is none of the four, `value` also for one that is unknown.
struct StoredType {
    explicit StoredType(const std::string& dataType);

    const ModbusTable* table = nullptr;
    const ValueType* value = nullptr;

    bool known() const { return table != nullptr && value != nullptr; }
};

constexpr Span wholeOf(const ModbusTable& table) {
    return {0, (std::int64_t{kLastAddress} + 1) * unitsPerAddress(table)};
}

/// True for a bit of a register.
constexpr bool isBit(std::int32_t bit) {
    return bit >= 0 && bit < kRegisterBits;
}

/// What an item covers that has this place, value type and, for arrays and strings, number of elements; it
/// may reach beyond the table's end. Empty without elements, and where the table has no such address or the
/// register no such bit.
Span spanOf(const ModbusTable& table, const ValueType& value, ItemPlace place, std::int64_t elements);

/// "holding register 20 to 22"; `bits` names the bits, too: "holding register 20 bit 3", "holding register 20
/// bits 3 to 5", "holding register 20 bit 3 to 21 bit 2".
std::string shownPlace(const ModbusTable& table, const Span& span, bool bits);

}  // namespace trevandix
