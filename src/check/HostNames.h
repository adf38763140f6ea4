#pragma once

#include <string_view>

namespace trevandix {

/// Digits only.
bool isDecimal(std::string_view text);

/// Of version 4, four numbers from 0 to 255 without leading zeros, which some programs take for octal
/// numbers; or of version 6.
bool isIpAddress(std::string_view text);

/// Letters, digits, "-" and "_", which Windows allows, in parts of at most 63 between dots; the last part is
/// no number, so that a wrong address is not taken for a name.
bool isHostName(std::string_view text);

}  // namespace trevandix
