#pragma once

#include <string>
#include <string_view>

namespace trevandix {

/// Why what was entered is not taken.
struct Refusal {
    std::string_view field;  ///< the member of ItemFields, UnitFields or DataTypeFields that is wrong
    std::string message;     ///< what the user is told
};

}  // namespace trevandix
