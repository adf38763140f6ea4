#include "check/Wording.h"

#include <array>

#include "check/Marks.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::size_t kLongest = 120;

bool breaksLine(char32_t c) {
    return isControl(c) || c == 0x2028 || c == 0x2029;
}

void appendEscape(std::string& out, char32_t c) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    if (c == '\t') return void(out += "\\t");
    if (c == '\n') return void(out += "\\n");
    if (c == '\r') return void(out += "\\r");
    out += c > 0xFF ? "\\u" : "\\x";
    for (int shift = c > 0xFF ? 12 : 4; shift >= 0; shift -= 4) out += kDigits[(c >> shift) & 0xFU];
}

std::string escaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t c = nextCodePoint(text, at);
        if (breaksLine(c))
            appendEscape(out, c);
        else
            out += text.substr(begin, at - begin);
    }
    return out;
}

bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

}  // namespace

std::string quoted(std::string_view text) {
    if (text.size() <= kLongest) return '"' + escaped(text) + '"';
    std::size_t end = kLongest;
    while (end > 0 && !startsCharacter(text[end])) --end;
    return '"' + escaped(text.substr(0, end)) + "...\"";
}

std::string shownKey(std::string_view key) {
    if (key.size() <= kLongest) return escaped(key);
    std::size_t begin = key.size() - kLongest;
    while (begin < key.size() && !startsCharacter(key[begin])) ++begin;
    return "..." + escaped(key.substr(begin));
}

std::string andMore(std::size_t count) {
    return count == 0 ? std::string() : " and " + std::to_string(count) + " more";
}

}  // namespace trevandix
