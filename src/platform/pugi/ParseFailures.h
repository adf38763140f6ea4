#pragma once

#include <cstddef>
#include <string_view>

namespace trevandix {

/// Throws the XmlParseError of a file that could not be parsed beyond `offset`.
[[noreturn]] void throwParseError(std::string_view bytes, std::size_t offset, std::string_view reason);

/// Throws XmlParseError when a UTF-16 file holds half a character or half a surrogate pair, which the parser
/// would drop without a word; or when a text of bytes has what looks like a character reference to half a
/// pair, wherever it stands.
void refuseHalfPairs(std::string_view bytes);

}  // namespace trevandix
