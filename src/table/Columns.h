#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/clsItem.h"
#include "model/clsModBusType.h"
#include "model/clsPLC.h"
#include "platform/Form.h"

// The columns of the three tables. Values are the texts of the dialogs.

namespace trevandix {

template <typename Fields>
struct TableColumn {
    using Text = std::string Fields::*;
    std::string_view header;
    Text text = nullptr;                 ///< nullptr: says which object is meant, or its new name
    std::string_view field{};            ///< the member's name, as a `Refusal` gives it
    KeyFilter filter = KeyFilter::None;  ///< of the dialog's box
    /// When one of these changes, the value is judged although it stays as it is.
    std::array<Text, 2> follows{};
};

using ItemColumn = TableColumn<ItemFields>;
inline constexpr std::array kItemColumns{
    ItemColumn{"Unit"},
    ItemColumn{"Branch"},
    ItemColumn{"Name", &ItemFields::name, "name", KeyFilter::ItemName},
    ItemColumn{"New Name"},
    ItemColumn{"Comment", &ItemFields::comment, "comment"},
    ItemColumn{"ModBus Type", &ItemFields::table, "table"},
    ItemColumn{"Address", &ItemFields::address, "address", KeyFilter::Numeric},
    ItemColumn{"Bit", &ItemFields::bit, "bit", KeyFilter::None, {&ItemFields::table, &ItemFields::type}},
    ItemColumn{"Data Type", &ItemFields::type, "type", KeyFilter::None, {&ItemFields::table}},
    ItemColumn{"Elements", &ItemFields::elements, "elements", KeyFilter::Numeric, {&ItemFields::type}},
    ItemColumn{
        "Access Rights", &ItemFields::accessRight, "accessRight", KeyFilter::None, {&ItemFields::table}},
};

using UnitColumn = TableColumn<UnitFields>;
/// Of a setting that the units on one serial line share.
constexpr UnitColumn lineSetting(std::string_view header, UnitColumn::Text text, std::string_view field) {
    return {header, text, field, KeyFilter::None, {&UnitFields::port}};
}
inline constexpr std::array kUnitColumns{
    UnitColumn{"Name", &UnitFields::name, "name"},
    UnitColumn{"New Name"},
    UnitColumn{"Identifier", &UnitFields::identifier, "identifier"},
    UnitColumn{"IP Address", &UnitFields::address, "address"},
    UnitColumn{"Timeout", &UnitFields::timeout, "timeout"},
    UnitColumn{"Port", &UnitFields::port, "port"},
    lineSetting("Baud Rate", &UnitFields::baud, "baud"),
    lineSetting("Parity", &UnitFields::parity, "parity"),
    lineSetting("Data Bits", &UnitFields::dataBits, "dataBits"),
    lineSetting("Stop Bits", &UnitFields::stopBits, "stopBits"),
    lineSetting("Flow Control", &UnitFields::flowControl, "flowControl"),
    UnitColumn{"Silent Interval", &UnitFields::silent, "silent"},
};

using TypeColumn = TableColumn<DataTypeFields>;
inline constexpr std::array kTypeColumns{
    TypeColumn{"Name", &DataTypeFields::name, "name"},
    TypeColumn{"Read Code", &DataTypeFields::readCode, "readCode"},
    TypeColumn{"Write Code", &DataTypeFields::writeCode, "writeCode"},
    TypeColumn{"Single Write Code", &DataTypeFields::singleCode, "singleCode"},
};

/// The place of a header among the columns of its table.
template <typename Fields, std::size_t size>
constexpr std::size_t columnCalled(std::string_view header,
                                   const std::array<TableColumn<Fields>, size>& columns) {
    std::size_t place = 0;
    while (columns.at(place).header != header) ++place;
    return place;
}

}  // namespace trevandix
