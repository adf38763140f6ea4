#include "model/NodeEditing.h"

#include <vector>

namespace trevandix {

namespace {

template <typename Record>
void addUnder(KeyedCollection<Record>& collection, const Key& from, const Key& to) {
    const std::shared_ptr<Record> record = collection.at(from);
    collection.add(record, to);
    record->sKey(to);
}

}  // namespace

// In the order of a recursion, items first, but branches may be nested as deeply as a file likes.
void RemoveBranch(Configuration& configuration, const TreeNode& node) {
    std::vector<const TreeNode*> waiting{&node};
    while (!waiting.empty()) {
        const TreeNode& branch = *waiting.back();
        waiting.pop_back();
        if (&branch != &node) configuration.branches.remove(branch.key());
        for (const TreeNode* child = branch.firstChild(); child != nullptr; child = child->nextSibling()) {
            if (child->tag() == NodeTag::Item) configuration.items.remove(child->key());
        }
        for (const TreeNode* child = branch.lastChild(); child != nullptr; child = child->previousSibling()) {
            if (child->tag() == NodeTag::Branch) waiting.push_back(child);
        }
    }
}

TreeNode& recreate(Configuration& configuration, const TreeNode& source, TreeNode& target) {
    const Key key(target.key(), source.text());
    TreeNode& node = configuration.tree.addChild(target, key, source.text(), source.look());
    if (source.tag() == NodeTag::Item) addUnder(configuration.items, source.key(), key);
    if (source.tag() == NodeTag::Branch) addUnder(configuration.branches, source.key(), key);
    return node;
}

}  // namespace trevandix
