#pragma once

#include <string>
#include <string_view>

namespace trevandix {

struct ValueType;

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

}  // namespace trevandix
