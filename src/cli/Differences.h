#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/Configuration.h"

namespace trevandix {

/// How two configurations differ in one thing that a file would hold.
struct Difference {
    enum class Kind { Removed, Added, Changed };
    Kind kind;
    std::string object;        ///< its path; empty for the whole file
    std::string_view field{};  ///< name in the file, of what was changed
    std::string before{};
    std::string after{};
};

/// Tells all differences: of the objects before in their order, then those added in theirs. The order itself
/// is none. Branch names are in capitals, as they are read.
void compare(const Configuration& before, const Configuration& after,
             const std::function<void(const Difference&)>& found);

}  // namespace trevandix
