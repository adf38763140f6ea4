#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace trevandix {

bool isAscii(std::string_view text);

/// Half of a UTF-16 pair, which is no character.
constexpr bool isHalfPair(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}
/// False for NUL too.
constexpr bool isCharacter(char32_t codePoint) {
    return codePoint != 0 && codePoint <= 0x10FFFF && !isHalfPair(codePoint);
}

/// Where the text stops to be UTF-8; npos when all of it is.
std::size_t invalidUtf8(std::string_view text);

/// Decodes the code point at `position` of UTF-8 `text` and moves `position` past it. An invalid byte is read
/// as Latin-1, so that no text is lost.
char32_t nextCodePoint(std::string_view text, std::size_t& position);

/// Appends the code point as UTF-8.
void appendUtf8(std::string& out, char32_t codePoint);

/// The character of a Windows-1252 byte; an unassigned byte is kept as a control character.
char32_t windows1252(unsigned char byte);

/// Upper case of Latin, Greek and Cyrillic letters, one to one. Independent of the locale.
char32_t upperCased(char32_t codePoint);
std::string upperCased(std::string_view text);

/// Compares by upper-cased code points: negative, zero or positive.
int compareIgnoringCase(std::string_view left, std::string_view right);

/// Removes blanks at both ends.
std::string_view trimmed(std::string_view text);

/// A number with its noun: "1 item", "3 items".
std::string counted(std::size_t count, std::string_view one, std::string_view many);

}  // namespace trevandix
