#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The tables of a Modbus device, the types of the values in them, and what follows from an item's type: its
// name in the file, what the dialog offers, and where the next item lies.

namespace trevandix {

inline constexpr std::int32_t kRegisterBits = 16;

/// One of the four tables of a Modbus device.
struct ModbusTable {
    std::string_view label;
    std::string_view file;      ///< its name in the file
    std::string_view sortCode;  ///< begins the sort key of its items
    bool registers;             ///< of 16 bits; else each address is one bit
    std::uint8_t readCode;      ///< usual Modbus function codes, like the following two
    std::uint8_t writeCode;     ///< of several values; 0 for a table that is only read
    std::uint8_t singleWrCode;

    constexpr bool writable() const { return writeCode != 0; }
};

/// A kind of value that an item may have. What is done with items of a type follows from its row.
struct ValueType {
    std::string_view label;
    std::string_view file;  ///< its name in the file
    std::int32_t bits;      ///< of one element; 0 when unknown
    bool elements;          ///< an array or a string: has a number of elements

    /// In a register, it stands at one of the bits.
    constexpr bool bitwise() const { return bits == 1; }
};

std::span<const ModbusTable> modbusTables();
/// The value types in the order in which they are offered.
std::span<const ValueType> valueTypes();

/// nullptr for any other label.
const ModbusTable* tableOf(std::string_view label);
/// The table whose label the name of a data type contains; nullptr for none.
const ModbusTable* tableIn(std::string_view name);
const ModbusTable* tableInFile(std::string_view fileName);
/// Knows the labels of `valueTypes` and "array", which is only read and kept. nullptr for any other.
const ValueType* valueTypeOf(std::string_view label);
const ValueType* valueTypeOfFile(std::string_view fileName);

inline bool isBoolean(std::string_view label) {
    const ValueType* type = valueTypeOf(label);
    return type != nullptr && type->bitwise();
}
/// Booleans inside a register have a bit number.
inline bool hasBitNumber(std::string_view table, std::string_view label) {
    const ModbusTable* known = tableIn(table);
    return isBoolean(label) && (known == nullptr || known->registers);
}
inline bool hasElements(std::string_view label) {
    const ValueType* type = valueTypeOf(label);
    return type != nullptr && type->elements;
}
/// By the words of a data type's name, which also decide for a table that is none of the four.
inline bool isReadOnly(std::string_view name) {
    return name.find("input") != std::string_view::npos;
}
inline bool hasRegisters(std::string_view name) {
    return name.find("register") != std::string_view::npos;
}

/// Both directions work on whole types: table and value type in one text.
/// Display: table label, ":", value type label ("holding register:signed 16 bit"); a data type has the table
/// alone. File: table name, one blank, value type name ("HREGISTER VT_I2"). Unknown value types yield the
/// table alone; an unknown table yields nothing in front of the separator.
std::string fileTypeName(std::string_view label);
std::string displayTypeLabel(std::string_view fileName);

/// Table and value type label of an item's type.
struct ItemType {
    std::string_view table;
    std::string_view label;
};
/// Splits `dataType`; for coils and input status the label is "boolean" or "boolean array", whatever stands
/// there.
ItemType splitDataType(std::string_view dataType);

/// The value type behind the separator of `dataType`; nullptr when it has none that is known.
const ValueType* valueTypeIn(std::string_view dataType);

/// The labels of the value types that items of a Modbus table may have, in the order in which they are
/// offered.
std::vector<std::string> valueTypesOf(std::string_view table);
std::vector<std::string> accessRightsOf(std::string_view table);
/// The bits of a register, "0" to "15".
std::vector<std::string> bitNumbers();

/// Where an item lies: register or bit address, and the bit 0 to 15 inside a register.
struct ItemPlace {
    std::int32_t address = 0;
    std::int32_t bit = 0;
    bool operator==(const ItemPlace&) const = default;
};

/// The place behind an item of the value type `label` in the Modbus table `table`. `elements` is not
/// negative.
ItemPlace advanced(ItemPlace place, std::string_view table, std::string_view label, std::int32_t elements);

}  // namespace trevandix
