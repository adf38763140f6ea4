#include "platform/Text.h"

#include <array>

namespace trevandix {

namespace {

bool isContinuation(std::string_view text, std::size_t index) {
    return index < text.size() && (static_cast<unsigned char>(text[index]) & 0xC0) == 0x80;
}

char32_t bits(std::string_view text, std::size_t index, unsigned mask) {
    return static_cast<unsigned char>(text[index]) & mask;
}

constexpr bool within(char32_t c, char32_t first, char32_t last) {
    return c >= first && c <= last;
}

}  // namespace

bool isAscii(std::string_view text) {
    unsigned char all = 0;
    for (const char c : text) all |= static_cast<unsigned char>(c);
    return all < 0x80;
}

char32_t nextCodePoint(std::string_view text, std::size_t& position) {
    const std::size_t at = position;
    const auto lead = static_cast<unsigned char>(text[at]);
    const int extra = lead < 0xC2 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : 0;
    for (int i = 1; i <= extra; ++i) {
        if (!isContinuation(text, at + static_cast<std::size_t>(i))) {
            position = at + 1;
            return lead;
        }
    }
    position = at + 1 + static_cast<std::size_t>(extra);
    char32_t c = lead;
    if (extra > 0) {
        c = lead & (0x3FU >> extra);
        for (int i = 1; i <= extra; ++i) c = (c << 6) | bits(text, at + static_cast<std::size_t>(i), 0x3F);
    }
    return c;
}

std::size_t invalidUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t c = nextCodePoint(text, at);
        const std::size_t shortest = c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
        if (at - begin != shortest || (c != 0 && !isCharacter(c))) return begin;
    }
    return std::string_view::npos;
}

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

char32_t windows1252(unsigned char byte) {
    // Bytes 80 to 9F; 0 for an unassigned one.
    static constexpr std::array<char16_t, 32> kCharacters{
        0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    const bool own = byte >= 0x80 && byte < 0xA0;
    const char32_t character = own ? kCharacters[byte - 0x80U] : 0;
    return character != 0 ? character : byte;
}

char32_t upperCased(char32_t c) {
    if (within(c, 'a', 'z')) return c - 0x20;
    if (c < 0x80) return c;
    if (within(c, 0xE0, 0xFE) && c != 0xF7) return c - 0x20;
    if (c == 0xFF) return 0x178;
    if (within(c, 0x100, 0x137) && c != 0x131) return c & ~1U;
    if (within(c, 0x139, 0x148) || within(c, 0x179, 0x17E)) return (c & 1U) != 0 ? c : c - 1;
    if (within(c, 0x14A, 0x177)) return c & ~1U;
    if (within(c, 0x3B1, 0x3C9) && c != 0x3C2) return c - 0x20;
    if (within(c, 0x430, 0x44F)) return c - 0x20;
    if (within(c, 0x450, 0x45F)) return c - 0x50;
    return c;
}

std::string upperCased(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) appendUtf8(result, upperCased(nextCodePoint(text, at)));
    return result;
}

int compareIgnoringCase(std::string_view left, std::string_view right) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() && j < right.size()) {
        const char32_t a = upperCased(nextCodePoint(left, i));
        const char32_t b = upperCased(nextCodePoint(right, j));
        if (a != b) return a < b ? -1 : 1;
    }
    return static_cast<int>(i < left.size()) - static_cast<int>(j < right.size());
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return (std::to_string(count) += ' ').append(count == 1 ? one : many);
}

}  // namespace trevandix
