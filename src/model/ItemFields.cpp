#include "model/ItemFields.h"

#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix {

std::optional<Refusal> refusal(const ItemFields& item) {
    constexpr double kLastAddress = 65535;
    if (item.name.empty()) return Refusal{"name", "Item name field is empty."};
    if (item.table.empty()) return Refusal{"table", "ModBus Type field is empty."};
    if (item.type.empty()) return Refusal{"type", "Data Type field is empty."};
    if (item.address.empty()) return Refusal{"address", "Memory address field is empty."};
    const double address = leadingNumber(item.address);
    if (address < 0 || address > kLastAddress) {
        return Refusal{"address", "Memory address field is not valid. It must be between 0 and 65535."};
    }
    if (hasBitNumber(item.table, item.type) && item.bit.empty())
        return Refusal{"bit", "Bit number field is empty."};
    if (hasElements(item.type)) {
        if (item.elements.empty()) return Refusal{"elements", "Number of elements field is empty."};
        if (leadingNumber(item.elements) < 0)
            return Refusal{"elements", "Number of elements field is not valid."};
    }
    if (item.accessRight.empty()) return Refusal{"accessRight", "Access Rights field is empty."};
    return std::nullopt;
}

}  // namespace trevandix
