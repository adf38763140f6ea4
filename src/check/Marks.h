#pragma once

#include <cstdint>
#include <string_view>

namespace trevandix {

/// What is worth knowing of a text's characters, so that the rules need not look at each of them again.
enum Mark : std::uint8_t {
    kMarkup = 1,       ///< "<" or "&", or "]]>", which XML wants nowhere but at the end of a section
    kQuote = 2,        ///< a quotation mark
    kControl = 4,      ///< a line break, a TAB or another control character
    kDot = 8,          ///< a full stop
    kBlankAtEnd = 16,  ///< a blank at the beginning or the end
    kSmall = 32,       ///< perhaps a small letter
};
using Marks = std::uint8_t;

Marks marksOf(std::string_view text);

/// Characters that have no place in a value: XML allows none but TAB and line breaks, and reads those as
/// blanks. Of the bytes 80 to 9F some programs make letters.
constexpr bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0xFFFE || c == 0xFFFF;
}

}  // namespace trevandix
