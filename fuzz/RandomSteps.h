#pragma once

#include <functional>
#include <vector>

#include "Desk.h"

namespace trevandix::testing {

/// Returns a number below the limit.
using Choice = std::function<unsigned(unsigned limit)>;

struct Walk {
    std::vector<Step> steps;
    std::string difference;  ///< after the last step; empty if there was none
    /// The difference and the few steps that cause it, one per line.
    std::string told() const;
};

/// Performs random steps up to the first difference. With `careless`, also drags units, data types and the
/// ModBus folder, which separates nodes from their records.
Walk walk(const Choice& choice, std::size_t most, bool careless = false);
/// The same, with choices from a seed.
Walk walk(unsigned seed, std::size_t most, bool careless = false);

/// The same from a small plant on, mostly with changes of many objects.
Walk bulkWalk(unsigned seed, std::size_t most);

}  // namespace trevandix::testing
