#pragma once

#include <memory>
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
    /// One node with the key that it gets, and the item or branch record that follows it, once it is taken.
    struct Step {
        TreeNode* node;
        Key key;
        std::shared_ptr<clsItem> item{};
        std::shared_ptr<clsBranch> branch{};
    };
    void plan(const TreeNode& container, const Key& containerKey);
    bool hasRecord(NodeTag tag, const Key& key) const;
    void check(const TreeNode& container) const;

    Content& content_;
    std::vector<Step> steps_;
};

}  // namespace trevandix
