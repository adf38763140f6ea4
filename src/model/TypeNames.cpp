#include "model/TypeNames.h"

#include "model/ValueTypes.h"

namespace trevandix {

const ValueType* valueTypeIn(std::string_view dataType) {
    const auto colon = dataType.find(':');
    return valueTypeOf(colon == std::string_view::npos ? dataType : dataType.substr(colon + 1));
}

std::string fileTypeName(std::string_view label) {
    const ModbusTable* table = tableIn(label);
    const ValueType* type = valueTypeIn(label);
    std::string result(table != nullptr ? table->file : std::string_view());
    if (type != nullptr) (result += ' ') += type->file;
    return result;
}

std::string displayTypeLabel(std::string_view fileName) {
    const ModbusTable* table = tableInFile(fileName);
    std::string_view typePart = fileName;
    if (table != nullptr) {
        const auto blank = fileName.find(' ');
        typePart = blank == std::string_view::npos ? std::string_view() : fileName.substr(blank + 1);
    }
    const ValueType* type = valueTypeOfFile(typePart);
    std::string result(table != nullptr ? table->label : std::string_view());
    if (type != nullptr) (result += ':') += type->label;
    return result;
}

ItemType splitDataType(std::string_view dataType) {
    const ModbusTable* table = tableIn(dataType);
    if (table != nullptr && !table->registers) {
        const bool array = dataType.find("array") != std::string_view::npos;
        return {table->label, array ? "boolean array" : "boolean"};
    }
    const auto colon = dataType.find(':');
    if (colon == std::string_view::npos) return {dataType, {}};
    return {dataType.substr(0, colon), dataType.substr(colon + 1)};
}

}  // namespace trevandix
