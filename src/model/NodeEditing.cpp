#include "model/NodeEditing.h"

#include <vector>

namespace trevandix {

// Without recursion, because branches may nest deeply; in the order of one, items first.
void RemoveBranch(Content& content, const TreeNode& node) {
    std::vector<const TreeNode*> waiting{&node};
    while (!waiting.empty()) {
        const TreeNode& branch = *waiting.back();
        waiting.pop_back();
        if (&branch != &node) content.take<clsBranch>(branch.key());
        for (const TreeNode* child = branch.firstChild(); child != nullptr; child = child->nextSibling()) {
            if (child->tag() == NodeTag::Item) content.take<clsItem>(child->key());
        }
        for (const TreeNode* child = branch.lastChild(); child != nullptr; child = child->previousSibling()) {
            if (child->tag() == NodeTag::Branch) waiting.push_back(child);
        }
    }
}

TreeNode& recreate(Content& content, const TreeNode& source, TreeNode& target, bool along) {
    const Key key(target.key(), source.text());
    TreeNode& node = along ? content.linkAlong(target, key, source.text(), source.look())
                           : content.link(target, key, source.text(), source.look());
    if (source.tag() == NodeTag::Item) content.share<clsItem>(source.key(), key);
    if (source.tag() == NodeTag::Branch) content.share<clsBranch>(source.key(), key);
    return node;
}

// Depth first, without recursion, because branches may nest deeply.
void CopySubTree(Content& content, const TreeNode& nodSource, TreeNode& nodDest) {
    struct Level {
        const TreeNode* next;
        TreeNode* destination;
    };
    std::vector<Level> levels{{nodSource.firstChild(), &nodDest}};
    while (!levels.empty()) {
        const auto [child, destination] = levels.back();
        if (child == nullptr) {
            levels.pop_back();
            continue;
        }
        levels.back().next = child->nextSibling();
        TreeNode& placed = recreate(content, *child, *destination, true);
        if (child->tag() == NodeTag::Branch) levels.push_back({child->firstChild(), &placed});
    }
}

}  // namespace trevandix
