#include "Invariants.h"

namespace trevandix {

namespace {

using Faults = std::vector<std::string>;

void fault(Faults& found, std::string_view what, const Key& key) {
    found.push_back(std::string(what) + ": " + key.str());
}

void checkChildren(const TreeNode& parent, Faults& found) {
    std::size_t count = 0;
    const TreeNode* before = nullptr;
    for (const TreeNode* child = parent.firstChild(); child != nullptr;
         child = child->nextSibling(), ++count) {
        if (child->parent() != &parent) fault(found, "child with another parent", child->key());
        if (child->previousSibling() != before) fault(found, "child with a wrong neighbour", child->key());
        if (before != nullptr && parent.sorted() && SiblingOrder{}(child, before)) {
            fault(found, "child out of order", child->key());
        }
        before = child;
    }
    if (parent.lastChild() != before) fault(found, "wrong last child", parent.key());
    if (parent.childCount() != count) fault(found, "wrong count of children", parent.key());
}

bool hasRecord(const Configuration& configuration, const TreeNode& node) {
    switch (node.tag()) {
        case NodeTag::DataType:
            return configuration.dataTypes.contains(node.key());
        case NodeTag::Plc:
            return configuration.units.contains(node.key());
        case NodeTag::Branch:
            return configuration.branches.contains(node.key());
        case NodeTag::Item:
            return configuration.items.contains(node.key());
        case NodeTag::Config:
        case NodeTag::ModBus:
            break;
    }
    return true;
}

template <typename Record>
void checkRecords(const KeyedCollection<Record>& collection, NodeTag tag, const StructureTree& tree,
                  Faults& found) {
    for (const auto& [key, record] : collection) {
        const TreeNode* node = tree.find(key);
        if (record == nullptr) fault(found, "key without record", key);
        if (node == nullptr || node->tag() != tag) {
            fault(found, std::string(tagName(tag)) + " record without node", key);
        }
    }
}

}  // namespace

Faults brokenLinks(const StructureTree& tree) {
    Faults found;
    std::size_t added = 0;
    for (const TreeNode* n = tree.firstAdded(); n != nullptr; n = StructureTree::nextAdded(*n), ++added) {
        checkChildren(*n, found);
        const bool reached = n->parent() == nullptr ? n == tree.root() : tree.find(n->key()) == n;
        if (!reached) fault(found, "node out of reach", n->key());
    }
    std::size_t below = 0;
    for (const TreeNode* n = tree.root(); n != nullptr; n = nextBelow(*n, *tree.root())) ++below;
    if (added != tree.size() || below != tree.size()) found.emplace_back("counts of nodes differ");
    return found;
}

Faults disagreements(const Configuration& configuration) {
    const StructureTree& tree = configuration.tree;
    Faults found = brokenLinks(tree);
    if (!configuration.state.configurationOpen || tree.root() == nullptr) return found;
    for (const TreeNode* n = tree.firstAdded(); n != nullptr; n = StructureTree::nextAdded(*n)) {
        if (!hasRecord(configuration, *n)) {
            fault(found, std::string(tagName(n->tag())) + " node without record", n->key());
        }
        const bool nested = n->tag() == NodeTag::Branch || n->tag() == NodeTag::Item;
        if (nested && n->key() != Key(n->parent()->key(), n->text()))
            fault(found, "key of another place", n->key());
    }
    checkRecords(configuration.units, NodeTag::Plc, tree, found);
    checkRecords(configuration.items, NodeTag::Item, tree, found);
    checkRecords(configuration.branches, NodeTag::Branch, tree, found);
    checkRecords(configuration.dataTypes, NodeTag::DataType, tree, found);
    return found;
}

}  // namespace trevandix
