#pragma once

#include <string>
#include <string_view>

namespace trevandix {

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

inline bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}
inline bool isBoolean(std::string_view label) {
    return contains(label, "boolean");
}
/// Value types that have a bit number in this table: booleans inside a register.
inline bool hasBitNumber(std::string_view table, std::string_view label) {
    return isBoolean(label) && !contains(table, "coil") && !contains(table, "input status");
}
/// Value types that have a number of elements.
inline bool hasElements(std::string_view label) {
    return contains(label, "array") || label == "string";
}

}  // namespace trevandix
