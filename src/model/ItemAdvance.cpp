#include "model/ItemAdvance.h"

#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix {

ItemPlace advanced(ItemPlace place, std::string_view table, std::string_view label, std::int32_t elements) {
    constexpr std::int32_t kRegisterBits = 16;
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
