#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "cli/Console.h"
#include "model/Configuration.h"

namespace trevandix {

/// How two configurations differ in one thing that a file would hold.
struct Difference {
    enum class Kind { Removed, Added, Changed };
    Kind kind;
    std::string object;        ///< its path; empty for the whole file
    std::string_view field{};  ///< of what was changed: its name in the file or its column in a table
    std::string before{};
    std::string after{};
};

/// Prints a line, coloured if the console has colours.
void print(const Console& console, const Difference& difference);

/// Tells all differences: of the objects before in their order, then those added in theirs. The order itself
/// is none. Branch names are in capitals, as they are read.
void compare(const Configuration& before, const Configuration& after,
             const std::function<void(const Difference&)>& found);

}  // namespace trevandix
