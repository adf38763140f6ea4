#pragma once

#include <vector>

#include "model/Content.h"

namespace trevandix {

/// Gives every item and branch below a unit or branch a new key after the container's key has changed. The
/// constructor plans and checks, so that a refusal changes nothing.
class SubtreeRekeying {
public:
    /// Errors: KeyInCollection, KeyNotUnique if a new key belongs to an object outside; InvalidCall for a
    /// node without a record.
    SubtreeRekeying(Content& content, const TreeNode& container, const Key& containerKey);

    /// To be called when the container has its new key.
    void apply();

private:
    void plan(const TreeNode& container, const Key& containerKey);
    bool hasRecord(NodeTag tag, const Key& key) const;
    void check(const TreeNode& container) const;

    Content& content_;
    std::vector<NewKey> keys_;
};

}  // namespace trevandix
