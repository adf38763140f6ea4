#pragma once

#include <random>
#include <set>

#include "model/Configuration.h"

namespace trevandix::testing {

/// Fills a configuration that has been begun with units, branches and items that a file can hold. In every
/// other one, a few names and comments, a type or a drag make it doubtful whether it comes back.
void plantAtRandom(Configuration& configuration, unsigned seed);

/// Adds an item of a random `table` in a place where others may be, and returns its bits. Of a table of bits,
/// each address counts as 16.
std::set<int> plantSomewhere(Configuration& configuration, TreeNode& container, std::mt19937& random,
                             const std::string& name, std::string& table);

}  // namespace trevandix::testing
