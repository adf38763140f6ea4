#include "cli/Console.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr bool isControl(char32_t c) {
    const bool control = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool line = c == 0x2028 || c == 0x2029;
    const bool direction =
        c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    return control || line || direction;
}

}  // namespace

std::string coloured(const Console& console, Colour colour, std::string_view text) {
    constexpr std::array<std::string_view, 3> kBegin{"\x1B[31m", "\x1B[32m", "\x1B[33m"};
    if (!console.colours) return std::string(text);
    return std::string(kBegin[static_cast<std::size_t>(colour)]).append(text).append("\x1B[0m");
}

std::string escaped(std::string_view text) {
    if (std::ranges::all_of(text, [](char c) { return c >= 0x20 && c < 0x7F; })) return std::string(text);
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextCodePoint(text, at);
        if (!isControl(c)) {
            appendUtf8(result, c);
            continue;
        }
        result += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4) result += "0123456789ABCDEF"[c >> shift & 0xFU];
    }
    return result;
}

void complain(const Console& console, std::string_view text) {
    console.err.write("trevandix: " + escaped(text) + "\n");
}

}  // namespace trevandix
