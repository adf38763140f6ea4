#include "platform/pugi/ParseFailures.h"

#include <algorithm>
#include <charconv>

#include "platform/Xml.h"

namespace trevandix {

using namespace std::string_view_literals;

namespace {

enum class Utf16 { No, LittleEndian, BigEndian };
enum class Half { None, First, Second };
constexpr std::string_view kHalfPair = "half a UTF-16 pair";

Utf16 utf16Kind(std::string_view bytes) {
    const auto begins = [&](std::string_view mark) { return bytes.starts_with(mark); };
    if (begins("\xFF\xFE\0\0"sv) || begins("<\0\0\0"sv)) return Utf16::No;
    if (begins("\xFF\xFE"sv) || begins("<\0"sv)) return Utf16::LittleEndian;
    return begins("\xFE\xFF"sv) || begins("\0<"sv) ? Utf16::BigEndian : Utf16::No;
}

[[noreturn]] void throwAt(std::string_view bytes, std::size_t offset, std::string_view reason) {
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), offset));
    throw XmlParseError(1 + static_cast<std::size_t>(std::count(bytes.begin(), end, '\n')), reason);
}

void refuseHalfReferences(std::string_view bytes) {
    constexpr std::string_view kBegin = "&#";
    for (std::size_t at = bytes.find(kBegin); at != std::string_view::npos; at = bytes.find(kBegin, at + 1)) {
        const std::size_t digits = at + kBegin.size();
        const bool hexadecimal = bytes.substr(digits, 1) == "x";
        unsigned character = 0;
        std::from_chars(bytes.data() + digits + (hexadecimal ? 1 : 0), bytes.data() + bytes.size(), character,
                        hexadecimal ? 16 : 10);
        if (character >= 0xD800 && character <= 0xDFFF) throwAt(bytes, at, kHalfPair);
    }
}

}  // namespace

void throwParseError(std::string_view bytes, std::size_t offset, std::string_view reason) {
    // The parser takes a NUL byte for the end of the file and blames what is open there. Where one of the
    // first bytes is NUL, characters are wider than a byte.
    const std::size_t nul = bytes.find('\0');
    const bool strayNul = nul > 3 && nul != std::string_view::npos && !bytes.starts_with("\xFF\xFE"sv) &&
                          !bytes.starts_with("\xFE\xFF"sv);
    throwAt(bytes, strayNul ? nul : offset, strayNul ? "NUL byte in the text" : reason);
}

void refuseHalfPairs(std::string_view bytes) {
    const Utf16 kind = utf16Kind(bytes);
    if (kind == Utf16::No) return refuseHalfReferences(bytes);
    const std::size_t high = kind == Utf16::LittleEndian ? 1 : 0;
    const auto half = [&](std::size_t at) {
        const int bits = at + 1 < bytes.size() ? static_cast<unsigned char>(bytes[at + high]) & 0xFC : 0;
        return bits == 0xD8 ? Half::First : bits == 0xDC ? Half::Second : Half::None;
    };
    if (bytes.size() % 2 != 0) throwAt(bytes, bytes.size(), "half a UTF-16 character");
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        if (half(at) == Half::None) continue;
        if (half(at) == Half::Second || half(at + 2) != Half::Second) throwAt(bytes, at, kHalfPair);
        at += 2;
    }
}

}  // namespace trevandix
