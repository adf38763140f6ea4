#pragma once

#include <functional>
#include <vector>

#include "Desk.h"

namespace trevandix::testing {

/// A number below the limit.
using Choice = std::function<unsigned(unsigned limit)>;

struct Walk {
    std::vector<Step> steps;
    std::string difference;  ///< after the last step; empty when there was none
    /// The steps that are needed for a difference, one a line, and the difference.
    std::string told() const;
};

/// Random steps, up to the first difference. `careless` also drags units, data types and the folder, which
/// parts nodes from their records.
Walk walk(const Choice& choice, std::size_t most, bool careless = false);
/// The same from a seed.
Walk walk(unsigned seed, std::size_t most, bool careless = false);

}  // namespace trevandix::testing
