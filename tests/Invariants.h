#pragma once

#include <string>
#include <vector>

#include "model/Configuration.h"

namespace trevandix {

/// Returns every fault in the tree's links, counts, order and index. Must always be empty.
std::vector<std::string> brokenLinks(const StructureTree& tree);

/// Returns these faults and, while a configuration is open, every disagreement between tree and collections.
/// Empty except after the few edits that may separate them: renaming a data type, and dragging anything but
/// branches and items.
std::vector<std::string> disagreements(const Configuration& configuration);

}  // namespace trevandix
