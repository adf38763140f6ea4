#pragma once

#include <cstdint>
#include <string_view>

namespace trevandix {

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
