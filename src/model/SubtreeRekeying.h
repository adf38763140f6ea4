#pragma once

#include <utility>
#include <vector>

#include "model/Content.h"

namespace trevandix {

/// Gives every item and branch below a unit or branch the key that follows from its place, for a container
/// that gets another key itself. Planned and checked first, so that a refusal changes nothing.
class SubtreeRekeying {
public:
    /// Errors: KeyInCollection, KeyNotUnique when a new key belongs to something that stays where it is;
    /// InvalidCall for a node without a record.
    SubtreeRekeying(Content& content, const TreeNode& container, const Key& containerKey);

    /// Once the container has its new key.
    void apply();

private:
    void plan(const TreeNode& container, const Key& containerKey);
    bool hasRecord(NodeTag tag, const Key& key) const;
    void check(const TreeNode& container) const;

    Content& content_;
    std::vector<std::pair<TreeNode*, Key>> keys_;
};

}  // namespace trevandix
