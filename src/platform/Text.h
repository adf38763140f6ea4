#pragma once

#include <string>
#include <string_view>

namespace trevandix {

bool isAscii(std::string_view text);

/// Decodes one code point at `position` of UTF-8 `text` and moves `position` past it. A byte that starts no
/// valid sequence is taken as a Latin-1 character, so that no text is ever lost.
char32_t nextCodePoint(std::string_view text, std::size_t& position);

/// Appends the UTF-8 form of `codePoint`.
void appendUtf8(std::string& out, char32_t codePoint);

/// One-to-one case mappings of the Latin, Greek and Cyrillic alphabets; independent of the locale.
char32_t upperCased(char32_t codePoint);
std::string upperCased(std::string_view text);

/// The order of texts on the screen: by upper-cased code points. Negative, zero or positive.
int compareIgnoringCase(std::string_view left, std::string_view right);

/// Without blanks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace trevandix
