#include "xmlfile/FileText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <utility>

#include "platform/Text.h"

namespace trevandix {

namespace {

// The character and its reference's length; length 0 when `text`, which begins with "&", holds no reference
// there.
struct Reference {
    char32_t character = 0;
    std::size_t length = 0;
};

Reference numericReference(std::string_view text, std::string_view prefix, int base) {
    if (!text.starts_with(prefix)) return {};
    unsigned value = 0;
    const char* const digits = text.data() + prefix.size();
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(digits, last, value, base);
    if (error != std::errc() || end == last || *end != ';' || value > 0x10FFFF) return {};
    if (value >= 0xD800 && value <= 0xDFFF) return {};  // half a character
    return {value, static_cast<std::size_t>(end - text.data()) + 1};
}

Reference xmlReference(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, char>, 5> kNamed{
        {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    for (const auto& [name, character] : kNamed) {
        if (text.starts_with(name)) return {static_cast<char32_t>(character), name.size()};
    }
    const Reference hexadecimal = numericReference(text, "&#x", 16);
    return hexadecimal.length != 0 ? hexadecimal : numericReference(text, "&#", 10);
}

// The writer makes them with capitals and without leading zeros, and only where a single byte does not do.
Reference writerReference(std::string_view text) {
    const Reference reference = numericReference(text, "&#x", 16);
    if (reference.character <= 0xFF || text[3] == '0') return {};
    const std::string_view digits = text.substr(3, reference.length - 4);
    const bool capitals = std::ranges::none_of(digits, [](char c) { return c >= 'a' && c <= 'f'; });
    return capitals ? reference : Reference();
}

}  // namespace

std::string utf8FromLatin1(std::string bytes) {
    const auto beyondAscii = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
    const auto first = std::ranges::find_if(bytes, beyondAscii);
    if (first == bytes.end()) return bytes;
    std::string text;
    text.reserve(bytes.size() + static_cast<std::size_t>(std::count_if(first, bytes.end(), beyondAscii)));
    for (const char byte : bytes) appendUtf8(text, static_cast<unsigned char>(byte));
    return text;
}

std::size_t decodeReferences(char* text, std::size_t length, References references) {
    std::size_t from = std::string_view(text, length).find('&');
    if (from == std::string_view::npos) return length;
    std::size_t to = from;
    std::string character;
    while (from < length) {
        const std::string_view rest(text + from, length - from);
        const Reference reference = rest.front() != '&'             ? Reference()
                                    : references == References::Xml ? xmlReference(rest)
                                                                    : writerReference(rest);
        if (reference.length == 0) {
            text[to++] = text[from++];
            continue;
        }
        character.clear();
        appendUtf8(character, reference.character);
        std::memcpy(text + to, character.data(), character.size());
        to += character.size();
        from += reference.length;
    }
    return to;
}

}  // namespace trevandix
