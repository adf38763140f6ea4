#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/ByteSink.h"

namespace trevandix {

/// Where the commands print and read. Text that they print is UTF-8.
struct Console {
    ByteSink& out;
    ByteSink& err;
    std::function<std::string()> in;  ///< all that is left of standard input; throws RuntimeError
    bool colours = false;             ///< of `out`
};

/// Why a command cannot do its work; the text names the file.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

enum class Colour { Red, Green, Yellow };
/// The text with what makes a terminal colour it, if the console has colours.
std::string coloured(const Console& console, Colour colour, std::string_view text);

/// The text with `\u001B` and the like for control characters and for those that turn the direction of
/// writing, so that no name can do anything to a terminal, or begin a line.
std::string escaped(std::string_view text);

/// Prints a message to the user.
void complain(const Console& console, std::string_view text);

}  // namespace trevandix
