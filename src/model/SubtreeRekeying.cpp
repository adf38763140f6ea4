#include "model/SubtreeRekeying.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "platform/RuntimeError.h"

namespace trevandix {

SubtreeRekeying::SubtreeRekeying(Content& content, const TreeNode& container, const Key& containerKey)
    : content_(content) {
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
        if (!hasRecord(node->tag(), node->key())) throw RuntimeError(ErrorNumber::InvalidCall);
        steps_.push_back({node, key});
        if (node->tag() == NodeTag::Branch) levels.push_back({node->firstChild(), key});
    }
}

bool SubtreeRekeying::hasRecord(NodeTag tag, const Key& key) const {
    return tag == NodeTag::Item ? content_.records<clsItem>().contains(key)
                                : content_.records<clsBranch>().contains(key);
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
        const bool recordLeaves = mover != leaving.end() && mover->second == step.node->tag();
        if (!recordLeaves && hasRecord(step.node->tag(), step.key)) {
            throw RuntimeError(ErrorNumber::KeyInCollection);
        }
        if (mover == leaving.end() && content_.tree().find(step.key) != nullptr) {
            throw RuntimeError(ErrorNumber::KeyNotUnique);
        }
    }
}

// Removes all old keys before it adds the new ones: a new key may be the old key of another node.
void SubtreeRekeying::apply() {
    for (Step& step : steps_) {
        if (step.node->tag() == NodeTag::Item) {
            step.item = content_.take<clsItem>(step.node->key());
        } else {
            step.branch = content_.take<clsBranch>(step.node->key());
        }
        content_.setKey(*step.node, Key());
    }
    for (const Step& step : steps_) {
        if (step.item != nullptr) {
            content_.setRecordKey(step.item, step.key);
            content_.put(step.item, step.key);
        } else {
            content_.setRecordKey(step.branch, step.key);
            content_.put(step.branch, step.key);
        }
        content_.setKey(*step.node, step.key);
    }
}

}  // namespace trevandix
