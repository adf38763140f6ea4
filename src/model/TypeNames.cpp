#include "model/TypeNames.h"

#include <algorithm>
#include <array>

namespace trevandix {

namespace {

struct Name {
    std::string_view label;
    std::string_view file;
};

// The order decides where a text contains several.
constexpr std::array kTables{
    Name{"input status", "INPUTSTATUS"},
    Name{"coil", "COIL"},
    Name{"input register", "IREGISTER"},
    Name{"holding register", "HREGISTER"},
};

constexpr std::array kValueTypes{
    Name{"string", "VT_BSTR"},
    Name{"boolean", "VT_BOOL"},
    Name{"unsigned 16 bit", "VT_UI2"},
    Name{"unsigned 32 bit", "VT_UI4"},
    Name{"signed 16 bit", "VT_I2"},
    Name{"signed 32 bit", "VT_I4"},
    Name{"32 bit float", "VT_R4"},
    Name{"boolean array", "VT_BOOL ARRAY"},
    Name{"array", "ARRAY"},
    Name{"unsigned 8 bit array", "VT_UI1 ARRAY"},
    Name{"unsigned 16 bit array", "VT_UI2 ARRAY"},
    Name{"unsigned 32 bit array", "VT_UI4 ARRAY"},
    Name{"signed 8 bit array", "VT_I1 ARRAY"},
    Name{"signed 16 bit array", "VT_I2 ARRAY"},
    Name{"signed 32 bit array", "VT_I4 ARRAY"},
    Name{"32 bit float array", "VT_R4 ARRAY"},
};

const Name* containedTable(std::string_view text, std::string_view Name::*part) {
    const auto* table = std::ranges::find_if(kTables, [&](const Name& t) { return contains(text, t.*part); });
    return table == kTables.end() ? nullptr : table;
}

const Name* valueType(std::string_view text, std::string_view Name::*part) {
    const auto* type = std::ranges::find(kValueTypes, text, part);
    return type == kValueTypes.end() ? nullptr : type;
}

}  // namespace

std::string fileTypeName(std::string_view label) {
    const Name* table = containedTable(label, &Name::label);
    const auto colon = label.find(':');
    const Name* type =
        valueType(colon == std::string_view::npos ? label : label.substr(colon + 1), &Name::label);
    std::string result(table != nullptr ? table->file : std::string_view());
    if (type != nullptr) (result += ' ') += type->file;
    return result;
}

std::string displayTypeLabel(std::string_view fileName) {
    const Name* table = containedTable(fileName, &Name::file);
    std::string_view typePart = fileName;
    if (table != nullptr) {
        const auto blank = fileName.find(' ');
        typePart = blank == std::string_view::npos ? std::string_view() : fileName.substr(blank + 1);
    }
    const Name* type = valueType(typePart, &Name::file);
    std::string result(table != nullptr ? table->label : std::string_view());
    if (type != nullptr) (result += ':') += type->label;
    return result;
}

ItemType splitDataType(std::string_view dataType) {
    const bool inputStatus = contains(dataType, "input status");
    if (inputStatus || contains(dataType, "coil")) {
        return {inputStatus ? "input status" : "coil",
                contains(dataType, "array") ? "boolean array" : "boolean"};
    }
    const auto colon = dataType.find(':');
    if (colon == std::string_view::npos) return {dataType, {}};
    return {dataType.substr(0, colon), dataType.substr(colon + 1)};
}

}  // namespace trevandix
