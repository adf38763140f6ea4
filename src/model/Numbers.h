#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace trevandix {

/// The decimal number (sign, digits, fraction, exponent) at the beginning of `text`, after blanks; 0 if there
/// is none. Like all functions here, independent of the locale.
double leadingNumber(std::string_view text);

/// The number that the whole text is, apart from blanks around it; nothing if it is not a number.
std::optional<double> wholeNumber(std::string_view text);
inline bool isNumeric(std::string_view text) {
    return wholeNumber(text).has_value();
}

/// Rounds to the nearest integer, halves to the even one. Errors: Overflow outside the type's range.
std::uint8_t toByte(double value);
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);

/// The same for a text that must be a number as a whole. Errors: TypeMismatch, Overflow.
std::uint8_t byteValue(std::string_view text);
std::int32_t int32Value(std::string_view text);

/// One more. Errors: Overflow above 32767, the limit of the 16-bit counters.
std::int16_t raised(std::int16_t counter);

}  // namespace trevandix
