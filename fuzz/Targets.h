#pragma once

#include <string_view>

namespace trevandix::fuzz {

// Each takes any bytes and throws std::logic_error when the editor does what it must never do. The tests
// replay the corpus and every input that once found a fault through the same functions.

/// The bytes as a configuration file: opened or refused, tree and collections agree, and what was opened can
/// be saved and opened again.
void Reader(std::string_view bytes);
/// The bytes as a file that is no XML: refused with a line, or mended into what the parser accepts. And as a
/// comment: it comes back from the mended file.
void Mending(std::string_view bytes);
/// The bytes as a type: converting there and back settles after one round.
void TypeNames(std::string_view bytes);
/// The bytes as clipboard text: nothing but blanks and line ends is lost.
void Clipboard(std::string_view bytes);
/// The bytes as a user's choices: after each step the editor is what the reference makes of it.
void Commands(std::string_view bytes);

}  // namespace trevandix::fuzz
