#pragma once

#include <string>
#include <vector>

#include "model/Configuration.h"

namespace trevandix {

/// Every way in which the tree itself is broken: links, counts, order, index. Always empty.
std::vector<std::string> brokenLinks(const StructureTree& tree);

/// The same, and every way in which tree and collections disagree while a configuration is open. Empty but
/// after the few edits that are known to part them: a data type given another name, and drags of what is
/// neither branch nor item.
std::vector<std::string> disagreements(const Configuration& configuration);

}  // namespace trevandix
