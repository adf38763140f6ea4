#pragma once

#include <string>
#include <string_view>

namespace trevandix {

/// Makes XML of a file that is none because the writer escapes nothing. `bytes` is the whole file; each of
/// its lines must be one that the writer makes, or the continuation of a value, or blank at the end. It is
/// ISO-8859-1, or UTF-8 behind a byte-order mark. The result is UTF-8 and means what was saved:
/// - In values, markup and control characters become numeric references. So does the "&" of everything that
///   looks like a reference, except for those that the writer makes of characters beyond ISO-8859-1.
/// - Branch names, which may be no XML names, are carried by names that are (`nameCarrying`). Only "<tag>" is
///   taken for an item.
/// Errors: XmlParseError with the first line that does not fit.
std::string mended(std::string_view bytes);

}  // namespace trevandix
