#pragma once

#include "model/Content.h"

namespace trevandix {

/// Removes the records of everything below a branch from the collections; the nodes stay. Errors: InvalidCall
/// for a node without a record; records removed before it stay removed.
void RemoveBranch(Content& content, const TreeNode& node);

/// Adds a node like `source`, without its children, below `target`. An item's or branch's record gets a
/// second entry under the new key, so that both nodes share it, and its own key becomes the new one; other
/// kinds get no record. `along`: `target` was added in the same step, so that Undo removes both together.
/// Errors: KeyNotUnique, with nothing changed; KeyInCollection and InvalidCall, with the node already added.
TreeNode& recreate(Content& content, const TreeNode& source, TreeNode& target, bool along = false);

/// Recreates everything below the source below the destination. Errors: as above; what was recreated before
/// stays.
void CopySubTree(Content& content, const TreeNode& nodSource, TreeNode& nodDest);

}  // namespace trevandix
