#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Key.h"

namespace trevandix {

enum class Severity : std::uint8_t {
    Error,    ///< the server or the editor cannot work with it as it stands
    Warning,  ///< it works, but hardly as intended
    Note,     ///< good to know; never counted
};
/// "error", "warning" or "note".
std::string_view severityName(Severity severity);

/// One kind of fault that the checks look for.
struct Rule {
    std::string_view name;  ///< in the command line's output, "key-collision"; never changes
    Severity severity;
    std::string_view meaning;  ///< what is wrong and why it matters, for the manual; one sentence
    std::string_view mending;  ///< what to do about it, for the manual; one sentence
};

/// All rules, in the order in which the manual lists them.
std::span<const Rule> rules();

/// What a rule found at one object.
struct Finding {
    const Rule* rule;  ///< of `rules`
    /// The key of the object's node, or of its record where no node has it. Empty for the whole file.
    Key object;
    std::string text;  ///< what is wrong and how to mend it; one line
};

struct FindingCounts {
    std::size_t errors = 0;
    std::size_t warnings = 0;
};
FindingCounts countFindings(std::span<const Finding> findings);

}  // namespace trevandix
