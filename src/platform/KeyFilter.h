#pragma once

#include <string>
#include <string_view>

namespace trevandix {

/// Which typed or pasted characters a text box keeps.
enum class KeyFilter { None, Numeric, ItemName };

/// True when the filter keeps the character.
bool keeps(KeyFilter filter, char32_t character);
/// The part of a typed or pasted text that a one-line box accepts: everything before the first line break or
/// TAB, without the characters that the filter discards.
std::string entered(KeyFilter filter, std::string_view text);

}  // namespace trevandix
