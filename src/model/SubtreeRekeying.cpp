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

// Parents before children, without recursion, because branches may nest deeply. Units that were dragged below
// keep their keys, and so does everything in them.
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
        keys_.emplace_back(node, key);
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
    leaving.reserve(keys_.size());
    arriving.reserve(keys_.size());
    for (const auto& [node, key] : keys_) leaving.emplace(node->key(), node->tag());
    for (const auto& [node, key] : keys_) {
        if (!arriving.insert(key).second) throw RuntimeError(ErrorNumber::KeyInCollection);
        const auto mover = leaving.find(key);
        const bool recordLeaves = mover != leaving.end() && mover->second == node->tag();
        if (!recordLeaves && hasRecord(node->tag(), key)) {
            throw RuntimeError(ErrorNumber::KeyInCollection);
        }
        if (mover == leaving.end() && content_.tree().find(key) != nullptr) {
            throw RuntimeError(ErrorNumber::KeyNotUnique);
        }
    }
}

void SubtreeRekeying::apply() {
    content_.rekey(keys_);
}

}  // namespace trevandix
