#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace trevandix {

/// The longest decimal number (sign, digits, fraction, exponent) that `text` begins with, blanks in front
/// skipped; 0 when there is none. Independent of the locale, like everything here.
double leadingNumber(std::string_view text);

/// The number that the whole text reads as, blanks around it allowed; nothing when it is no number.
std::optional<double> wholeNumber(std::string_view text);
inline bool isNumeric(std::string_view text) {
    return wholeNumber(text).has_value();
}

/// Rounding to the nearest integer, halves to the even neighbour. Errors: Overflow outside the type's range.
std::uint8_t toByte(double value);
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);

/// The same for a text that must be a number as a whole. Errors: TypeMismatch, Overflow.
std::uint8_t byteValue(std::string_view text);
std::int32_t int32Value(std::string_view text);

/// One more. Errors: Overflow above 32767, the limit of the 16-bit counters.
std::int16_t raised(std::int16_t counter);

}  // namespace trevandix
