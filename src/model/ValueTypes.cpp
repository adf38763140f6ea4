#include "model/ValueTypes.h"

#include <algorithm>
#include <array>

#include "model/Numbers.h"

namespace trevandix {

namespace {

// Label, file, sort code, registers, function codes. If a text contains several labels, the first row wins.
constexpr std::array kTables{
    ModbusTable{"input status", "INPUTSTATUS", "IS", false, 2, 0, 0},
    ModbusTable{"coil", "COIL", "CO", false, 1, 15, 5},
    ModbusTable{"input register", "IREGISTER", "IR", true, 4, 0, 0},
    ModbusTable{"holding register", "HREGISTER", "HR", true, 3, 16, 6},
};

// Label, file, bits of an element, elements.
constexpr std::array kTypes{
    ValueType{"boolean", "VT_BOOL", 1, false},
    ValueType{"unsigned 16 bit", "VT_UI2", 16, false},
    ValueType{"unsigned 32 bit", "VT_UI4", 32, false},
    ValueType{"signed 16 bit", "VT_I2", 16, false},
    ValueType{"signed 32 bit", "VT_I4", 32, false},
    ValueType{"32 bit float", "VT_R4", 32, false},
    ValueType{"boolean array", "VT_BOOL ARRAY", 1, true},
    ValueType{"unsigned 8 bit array", "VT_UI1 ARRAY", 8, true},
    ValueType{"unsigned 16 bit array", "VT_UI2 ARRAY", 16, true},
    ValueType{"unsigned 32 bit array", "VT_UI4 ARRAY", 32, true},
    ValueType{"signed 8 bit array", "VT_I1 ARRAY", 8, true},
    ValueType{"signed 16 bit array", "VT_I2 ARRAY", 16, true},
    ValueType{"signed 32 bit array", "VT_I4 ARRAY", 32, true},
    ValueType{"32 bit float array", "VT_R4 ARRAY", 32, true},
    ValueType{"string", "VT_BSTR", 8, true},
    // Not offered, because the type of its elements is unknown.
    ValueType{"array", "ARRAY", 0, true},
};

template <typename Row>
const Row* find(std::span<const Row> rows, std::string_view text, std::string_view Row::*column) {
    const auto row = std::ranges::find(rows, text, column);
    return row == rows.end() ? nullptr : &*row;
}

const ModbusTable* firstContained(std::string_view text, std::string_view ModbusTable::*column) {
    const auto row = std::ranges::find_if(kTables, [&](const ModbusTable& table) {
        return text.find(table.*column) != std::string_view::npos;
    });
    return row == kTables.end() ? nullptr : &*row;
}

}  // namespace

std::span<const ModbusTable> modbusTables() {
    return kTables;
}

std::span<const ValueType> valueTypes() {
    return std::span(kTypes).first(kTypes.size() - 1);
}

const ModbusTable* tableOf(std::string_view label) {
    return find(modbusTables(), label, &ModbusTable::label);
}

const ModbusTable* tableIn(std::string_view name) {
    return firstContained(name, &ModbusTable::label);
}

const ModbusTable* tableInFile(std::string_view fileName) {
    return firstContained(fileName, &ModbusTable::file);
}

const ValueType* valueTypeOf(std::string_view label) {
    return find(std::span<const ValueType>(kTypes), label, &ValueType::label);
}

const ValueType* valueTypeOfFile(std::string_view fileName) {
    return find(std::span<const ValueType>(kTypes), fileName, &ValueType::file);
}

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

std::vector<std::string> valueTypesOf(std::string_view table) {
    const ModbusTable* known = tableOf(table);
    std::vector<std::string> labels;
    for (const ValueType& type : valueTypes()) {
        if (type.bitwise() || (known != nullptr && known->registers)) labels.emplace_back(type.label);
    }
    return labels;
}

std::vector<std::string> accessRightsOf(std::string_view table) {
    const ModbusTable* known = tableOf(table);
    if (known != nullptr && !known->writable()) return {"READ"};
    return {"READ", "WRITE", "READWRITE"};
}

std::vector<std::string> bitNumbers() {
    std::vector<std::string> bits;
    for (int bit = 0; bit < kRegisterBits; ++bit) bits.push_back(std::to_string(bit));
    return bits;
}

ItemPlace advanced(ItemPlace place, std::string_view table, std::string_view label, std::int32_t elements) {
    constexpr std::int32_t kByteBits = 8;
    const ValueType* type = valueTypeOf(label);
    if (type == nullptr) return place;
    const std::int32_t count = type->elements ? elements : 1;
    if (type->bitwise()) {
        if (!hasRegisters(table)) return {place.address + count, place.bit};
        const std::int32_t total = place.bit + count;
        return {place.address + total / kRegisterBits, total % kRegisterBits};
    }
    // An even number of bytes gets one register more than it needs: existing plants are laid out like that.
    if (type->bits == kByteBits) return {place.address + toInt32(count / 2.0) + 1, place.bit};
    return {place.address + count * (type->bits / kRegisterBits), place.bit};
}

}  // namespace trevandix
