#include "model/ValueTypes.h"

#include <algorithm>
#include <array>

namespace trevandix {

namespace {

// Label, file, sort code, registers, function codes. The order decides where a text contains several.
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
    // Never offered, as its elements could be anything.
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

}  // namespace trevandix
