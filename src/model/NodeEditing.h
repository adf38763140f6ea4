#pragma once

#include "model/Content.h"

namespace trevandix {

/// Removes the records of everything below a branch from the collections, by the nodes' keys; nodes stay.
/// Errors: InvalidCall for a node without a record; what was removed before is gone.
void RemoveBranch(Content& content, const TreeNode& node);

/// Adds a node like `source` below `target`, and puts its item or branch record under the new key too.
/// Neither source node nor children are touched. The two nodes share the record, which then names the new
/// place as its own. Nodes of other kinds have no record to follow them. `along` is for a node below
/// one recreated in the same step: Undo removes both together. Errors: KeyNotUnique, with nothing changed;
/// KeyInCollection and InvalidCall, with the node already added.
TreeNode& recreate(Content& content, const TreeNode& source, TreeNode& target, bool along = false);

/// Recreates what is below the source below the destination, branches with all their contents. Errors: as
/// above; what was recreated before stays.
void CopySubTree(Content& content, const TreeNode& nodSource, TreeNode& nodDest);

}  // namespace trevandix
