#include "model/SubtreeRekeying.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "platform/RuntimeError.h"

namespace trevandix {

SubtreeRekeying::SubtreeRekeying(Configuration& configuration, const TreeNode& container,
                                 const Key& containerKey)
    : configuration_(configuration) {
    plan(container, containerKey);
    check(container);
}

// Parents before children, without recursion: branches may nest as deeply as they like. Units that were
// dragged below keep their keys, and so does what is in them.
void SubtreeRekeying::plan(const TreeNode& container, const Key& containerKey) {
    struct Level {
        TreeNode* next;
        Key key;
    };
    std::vector<Level> levels{{container.firstChild(), containerKey}};
    while (!levels.empty()) {
        TreeNode* node = levels.back().next;
        if (node == nullptr) {
            levels.pop_back();
            continue;
        }
        levels.back().next = node->nextSibling();
        if (node->tag() != NodeTag::Item && node->tag() != NodeTag::Branch) continue;
        const Key key(levels.back().key, node->text());
        addStep(*node, key);
        if (node->tag() == NodeTag::Branch) levels.push_back({node->firstChild(), key});
    }
}

void SubtreeRekeying::addStep(TreeNode& node, const Key& key) {
    Step step{&node, key, nullptr, nullptr};
    if (node.tag() == NodeTag::Item) {
        step.item = configuration_.items.at(node.key());
    } else {
        step.branch = configuration_.branches.at(node.key());
    }
    steps_.push_back(std::move(step));
}

// A new key must be free, or become free because the node that has it moves away too.
void SubtreeRekeying::check(const TreeNode& container) const {
    std::unordered_map<Key, NodeTag> leaving{{container.key(), container.tag()}};
    std::unordered_set<Key> arriving;
    leaving.reserve(steps_.size());
    arriving.reserve(steps_.size());
    for (const Step& step : steps_) leaving.emplace(step.node->key(), step.node->tag());
    for (const Step& step : steps_) {
        if (!arriving.insert(step.key).second) throw RuntimeError(ErrorNumber::KeyInCollection);
        const auto mover = leaving.find(step.key);
        const bool item = step.item != nullptr;
        const bool recordLeaves = mover != leaving.end() && mover->second == step.node->tag();
        const bool recordThere =
            item ? configuration_.items.contains(step.key) : configuration_.branches.contains(step.key);
        if (recordThere && !recordLeaves) throw RuntimeError(ErrorNumber::KeyInCollection);
        if (mover == leaving.end() && configuration_.tree.find(step.key) != nullptr) {
            throw RuntimeError(ErrorNumber::KeyNotUnique);
        }
    }
}

// First everything goes out under its old key, then in under the new one: a new key may be another's old one.
void SubtreeRekeying::apply() {
    for (const Step& step : steps_) {
        const Key oldKey = step.node->key();
        step.item != nullptr ? configuration_.items.remove(oldKey) : configuration_.branches.remove(oldKey);
        configuration_.tree.setKey(*step.node, Key());
    }
    for (const Step& step : steps_) {
        if (step.item != nullptr) {
            step.item->sKey(step.key);
            configuration_.items.add(step.item, step.key);
        } else {
            step.branch->sKey(step.key);
            configuration_.branches.add(step.branch, step.key);
        }
        configuration_.tree.setKey(*step.node, step.key);
    }
}

}  // namespace trevandix
