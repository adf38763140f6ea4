#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// How findings show names and numbers.

namespace trevandix {

/// The text in quotation marks, on one line: control characters as escapes, and of a long text the beginning.
std::string quoted(std::string_view text);
/// A key in the same way, without quotation marks; of a long one the end, where the object's own name is.
std::string shownKey(std::string_view key);
/// " and 3 more"; empty for 0.
std::string andMore(std::size_t count);

}  // namespace trevandix
