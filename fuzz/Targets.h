#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "FakePlatform.h"

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
/// Fills whatever dialog is open and leaves it. `next` gives 0 to 255, `name` a text.
void fillDialog(testing::FakeForm& form, const std::function<unsigned()>& next,
                const std::function<std::string()>& name);
struct Habits {
    /// For the fuzzer not many, as long sequences tell it less and take their time.
    std::size_t mostSteps = 200;
    /// Drags units as well. A drag takes none of their records along: kept, and no agreement of tree and
    /// collections is to be expected then.
    bool careless = false;
    /// Looks at the editor after each step.
    std::function<void(testing::Workplace&)> after = [](testing::Workplace&) {};
};
/// The bytes as a user's commands: tree and collections agree after each, or the tree alone is sound where
/// the user is careless. Returns how many there were.
std::size_t Commands(std::string_view bytes, const Habits& habits = {});

}  // namespace trevandix::fuzz
