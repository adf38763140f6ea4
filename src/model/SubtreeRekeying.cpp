#include "model/SubtreeRekeying.h"

#include "model/KeyIndex.h"
#include "platform/RuntimeError.h"

namespace trevandix {

namespace {

bool takesKeyFromContainer(const TreeNode& node) {
    return node.tag() == NodeTag::Item || node.tag() == NodeTag::Branch;
}

// True for the container and what gets a new key below it.
bool moves(const TreeNode& node, const TreeNode& container) {
    const TreeNode* each = &node;
    while (each != &container && each != nullptr && takesKeyFromContainer(*each)) each = each->parent();
    return each == &container;
}

}  // namespace

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
        if (!takesKeyFromContainer(*node)) continue;
        const Key key(levels.back().key, node->text());
        if (!hasRecord(node->tag(), node->key())) throw RuntimeError(ErrorNumber::InvalidCall);
        keys_.push_back({node, key});
        if (node->tag() == NodeTag::Branch) levels.push_back({node->firstChild(), key});
    }
}

bool SubtreeRekeying::hasRecord(NodeTag tag, const Key& key) const {
    return tag == NodeTag::Item ? content_.records<clsItem>().contains(key)
                                : content_.records<clsBranch>().contains(key);
}

// A new key must be free, or become free because the node that has it moves away too.
void SubtreeRekeying::check(const TreeNode& container) const {
    KeyIndex<const NewKey*> arriving;
    arriving.reserve(keys_.size());
    for (const NewKey& each : keys_) {
        if (!arriving.insert(&each)) throw RuntimeError(ErrorNumber::KeyInCollection);
        const TreeNode* holder = content_.tree().find(each.wanted);
        const bool leaves = holder != nullptr && moves(*holder, container);
        const bool recordLeaves = leaves && holder->tag() == each.node->tag();
        if (!recordLeaves && hasRecord(each.node->tag(), each.wanted))
            throw RuntimeError(ErrorNumber::KeyInCollection);
        if (holder != nullptr && !leaves) throw RuntimeError(ErrorNumber::KeyNotUnique);
    }
}

void SubtreeRekeying::apply() {
    content_.rekey(keys_);
}

}  // namespace trevandix
