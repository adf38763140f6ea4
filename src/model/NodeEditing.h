#pragma once

#include "model/Configuration.h"

namespace trevandix {

/// Removes the records of everything below a branch from the collections, by the nodes' keys; nodes stay.
/// Errors: InvalidCall for a node without a record; what was removed before is gone.
void RemoveBranch(Configuration& configuration, const TreeNode& node);

/// Adds a node like `source` below `target`, and puts its item or branch record under the new key too.
/// Neither source node nor children are touched. The two nodes share the record, which then names the new
/// place as its own. Nodes of other kinds have no record to follow them. Errors: KeyNotUnique, with nothing
/// changed; KeyInCollection and InvalidCall, with the node already added.
TreeNode& recreate(Configuration& configuration, const TreeNode& source, TreeNode& target);

}  // namespace trevandix
