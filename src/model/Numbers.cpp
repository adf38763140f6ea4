#include "model/Numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

struct Parsed {
    double value;
    const char* end;
};

// Parses the beginning of `text`; `end` is its start if there is no number.
Parsed parseNumber(std::string_view text) {
    const char* const begin = text.data();
    const char* const last = begin + text.size();
    const char* digits = begin;
    if (digits != last && (*digits == '-' || *digits == '+')) ++digits;
    const char* first = digits != last && *digits == '.' ? digits + 1 : digits;
    if (first == last || *first < '0' || *first > '9') return {0, begin};  // also keeps "inf" and "nan" out
    double value = 0;
    const auto [end, error] = std::from_chars(digits, last, value);
    if (error == std::errc::result_out_of_range) {
        // Too small reads as 0, too large as infinity, which every conversion then refuses.
        const std::string_view number(digits, end);
        const auto exponent = number.find_first_of("eE");
        const bool tiny = exponent != std::string_view::npos && number.substr(exponent + 1).starts_with('-');
        value = tiny ? 0 : std::numeric_limits<double>::infinity();
    }
    return {*begin == '-' ? -value : value, end};
}

template <typename Integer>
Integer toInteger(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<Integer>(rounded);
}

double strictNumber(std::string_view text) {
    const auto value = wholeNumber(text);
    if (!value) throw RuntimeError(ErrorNumber::TypeMismatch);
    return *value;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

}  // namespace

double leadingNumber(std::string_view text) {
    text = withoutLeadingBlanks(text);
    return text.empty() ? 0 : parseNumber(text).value;
}

std::optional<double> wholeNumber(std::string_view text) {
    text = withoutLeadingBlanks(text);
    if (text.empty()) return std::nullopt;
    text = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
    const Parsed parsed = parseNumber(text);
    if (parsed.end != text.data() + text.size()) return std::nullopt;
    return parsed.value;
}

std::uint8_t toByte(double value) {
    return toInteger<std::uint8_t>(value);
}
std::int16_t toInt16(double value) {
    return toInteger<std::int16_t>(value);
}
std::int32_t toInt32(double value) {
    return toInteger<std::int32_t>(value);
}

std::uint8_t byteValue(std::string_view text) {
    return toByte(strictNumber(text));
}
std::int32_t int32Value(std::string_view text) {
    return toInt32(strictNumber(text));
}

std::int16_t raised(std::int16_t counter) {
    if (counter == std::numeric_limits<std::int16_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(counter + 1);
}

}  // namespace trevandix
