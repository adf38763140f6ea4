#include "model/ItemAdvance.h"

#include <algorithm>
#include <array>

#include "model/Numbers.h"
#include "model/TypeNames.h"

namespace trevandix {

namespace {

constexpr std::int32_t kRegisterBits = 16;

enum class Step { One, Two, Elements, TwiceElements, Bytes, Bit, Bits };

struct AdvanceRow {
    std::string_view label;
    Step inRegisters;
    Step elsewhere;
};

constexpr std::array kRows{
    AdvanceRow{"boolean", Step::Bit, Step::One},
    AdvanceRow{"unsigned 16 bit", Step::One, Step::One},
    AdvanceRow{"signed 16 bit", Step::One, Step::One},
    AdvanceRow{"unsigned 32 bit", Step::Two, Step::Two},
    AdvanceRow{"signed 32 bit", Step::Two, Step::Two},
    AdvanceRow{"32 bit float", Step::Two, Step::Two},
    AdvanceRow{"boolean array", Step::Bits, Step::Elements},
    AdvanceRow{"unsigned 8 bit array", Step::Bytes, Step::Bytes},
    AdvanceRow{"signed 8 bit array", Step::Bytes, Step::Bytes},
    AdvanceRow{"string", Step::Bytes, Step::Bytes},
    AdvanceRow{"unsigned 16 bit array", Step::Elements, Step::Elements},
    AdvanceRow{"signed 16 bit array", Step::Elements, Step::Elements},
    AdvanceRow{"unsigned 32 bit array", Step::TwiceElements, Step::TwiceElements},
    AdvanceRow{"signed 32 bit array", Step::TwiceElements, Step::TwiceElements},
    AdvanceRow{"32 bit float array", Step::TwiceElements, Step::TwiceElements},
};

ItemPlace bitsOn(ItemPlace place, std::int32_t bits) {
    const std::int32_t total = place.bit + bits;
    return {place.address + total / kRegisterBits, total % kRegisterBits};
}

}  // namespace

ItemPlace advanced(ItemPlace place, std::string_view table, std::string_view label, std::int32_t elements) {
    const auto* row = std::ranges::find(kRows, label, &AdvanceRow::label);
    if (row == kRows.end()) return place;
    switch (contains(table, "register") ? row->inRegisters : row->elsewhere) {
        case Step::One:
            return {place.address + 1, place.bit};
        case Step::Two:
            return {place.address + 2, place.bit};
        case Step::Elements:
            return {place.address + elements, place.bit};
        case Step::TwiceElements:
            return {place.address + 2 * elements, place.bit};
        case Step::Bytes:
            // One register more than an even number of bytes needs: kept, plants are laid out by it.
            return {place.address + toInt32(elements / 2.0) + 1, place.bit};
        case Step::Bit:
            return bitsOn(place, 1);
        case Step::Bits:
            return bitsOn(place, elements);
    }
    return place;
}

}  // namespace trevandix
