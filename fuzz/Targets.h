#pragma once

#include <string_view>

namespace trevandix::fuzz {

// Each function accepts any bytes and throws std::logic_error if the editor does something wrong. The unit
// tests run the same functions on the corpus and on every input that once revealed a fault.

/// Opens the bytes as a configuration file. Tree and collections must agree, and a configuration that was
/// opened must survive saving and opening again.
void Reader(std::string_view bytes);
/// Mends the bytes as a malformed file: the result must be well-formed, or the error must name a line. Also
/// uses the bytes as a comment, which must come back from the mended file.
void Mending(std::string_view bytes);
/// Converts the bytes as a type name in both directions; the result must be stable after one round.
void TypeNames(std::string_view bytes);
/// Splits the bytes as clipboard text; only spaces and line ends may be lost.
void Clipboard(std::string_view bytes);
/// Reads the bytes as a table of cells: an error must name a line, and cells must come back from the table
/// that is written of them, with each separator.
void Csv(std::string_view bytes);
/// Uses the bytes as a user's choices; the editor must match the reference after each step.
void Commands(std::string_view bytes);

}  // namespace trevandix::fuzz
