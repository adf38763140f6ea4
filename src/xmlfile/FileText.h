#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace trevandix {

/// Which character references a file's values hold.
enum class References {
    Writer,  ///< those that the writer makes of characters beyond ISO-8859-1, and no other: all else is
             ///< literal text
    Xml,     ///< all numeric ones and the five named ones
};

/// ISO-8859-1 bytes as UTF-8.
std::string utf8FromLatin1(std::string bytes);

/// Puts the characters in the place of their references; the text only ever shrinks. Returns its new length.
/// What is no reference stays as it is.
std::size_t decodeReferences(char* text, std::size_t length, References references);

}  // namespace trevandix
