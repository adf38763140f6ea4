#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/clsItem.h"
#include "model/clsModBusType.h"
#include "model/clsPLC.h"
#include "platform/Form.h"

// The columns of the three tables. Values are the texts of the dialogs.

namespace trevandix {

/// When a value is judged although it is as it was.
enum class Judged : std::uint8_t {
    Alone,    ///< never
    Follows,  ///< when one that leads has changed
    Leads,    ///< when another one that leads has changed
};

template <typename Fields>
struct TableColumn {
    std::string_view header;
    std::string Fields::*text = nullptr;  ///< nullptr: says which object is meant, or its new name
    std::string_view field{};             ///< the member's name, as a `Refusal` gives it
    KeyFilter filter = KeyFilter::None;   ///< of the dialog's box
    Judged judged = Judged::Alone;
};

inline constexpr std::array kItemColumns{
    TableColumn<ItemFields>{"Unit"},
    TableColumn<ItemFields>{"Branch"},
    TableColumn<ItemFields>{"Name", &ItemFields::name, "name", KeyFilter::ItemName},
    TableColumn<ItemFields>{"New Name"},
    TableColumn<ItemFields>{"Comment", &ItemFields::comment, "comment"},
    TableColumn<ItemFields>{"ModBus Type", &ItemFields::table, "table", KeyFilter::None, Judged::Leads},
    TableColumn<ItemFields>{"Address", &ItemFields::address, "address", KeyFilter::Numeric},
    TableColumn<ItemFields>{"Bit", &ItemFields::bit, "bit", KeyFilter::None, Judged::Follows},
    TableColumn<ItemFields>{"Data Type", &ItemFields::type, "type", KeyFilter::None, Judged::Leads},
    TableColumn<ItemFields>{"Elements", &ItemFields::elements, "elements", KeyFilter::Numeric,
                            Judged::Follows},
    TableColumn<ItemFields>{"Access Rights", &ItemFields::accessRight, "accessRight", KeyFilter::None,
                            Judged::Follows},
};

// Units on one serial line share its settings.
inline constexpr std::array kUnitColumns{
    TableColumn<UnitFields>{"Name", &UnitFields::name, "name"},
    TableColumn<UnitFields>{"New Name"},
    TableColumn<UnitFields>{"Identifier", &UnitFields::identifier, "identifier"},
    TableColumn<UnitFields>{"IP Address", &UnitFields::address, "address"},
    TableColumn<UnitFields>{"Timeout", &UnitFields::timeout, "timeout"},
    TableColumn<UnitFields>{"Port", &UnitFields::port, "port", KeyFilter::None, Judged::Leads},
    TableColumn<UnitFields>{"Baud Rate", &UnitFields::baud, "baud", KeyFilter::None, Judged::Follows},
    TableColumn<UnitFields>{"Parity", &UnitFields::parity, "parity", KeyFilter::None, Judged::Follows},
    TableColumn<UnitFields>{"Data Bits", &UnitFields::dataBits, "dataBits", KeyFilter::None, Judged::Follows},
    TableColumn<UnitFields>{"Stop Bits", &UnitFields::stopBits, "stopBits", KeyFilter::None, Judged::Follows},
    TableColumn<UnitFields>{"Flow Control", &UnitFields::flowControl, "flowControl", KeyFilter::None,
                            Judged::Follows},
    TableColumn<UnitFields>{"Silent Interval", &UnitFields::silent, "silent"},
};

inline constexpr std::array kTypeColumns{
    TableColumn<DataTypeFields>{"Name", &DataTypeFields::name, "name"},
    TableColumn<DataTypeFields>{"Read Code", &DataTypeFields::readCode, "readCode"},
    TableColumn<DataTypeFields>{"Write Code", &DataTypeFields::writeCode, "writeCode"},
    TableColumn<DataTypeFields>{"Single Write Code", &DataTypeFields::singleCode, "singleCode"},
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
