#include "model/StructureTree.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

std::string_view tagName(NodeTag tag) {
    constexpr std::array<std::string_view, 6> kNames{"config", "modbus", "datatype", "plc", "branch", "item"};
    return kNames[static_cast<std::size_t>(tag)];
}

std::string_view imageName(Image image) {
    constexpr std::array<std::string_view, 6> kNames{"", "config", "main", "item", "plc", "branch"};
    return kNames[static_cast<std::size_t>(image)];
}

bool SiblingOrder::operator()(const TreeNode* left, const TreeNode* right) const {
    return compareIgnoringCase(left->text(), right->text()) < 0;
}

bool SiblingOrder::operator()(const TreeNode* left, std::string_view right) const {
    return compareIgnoringCase(left->text(), right) < 0;
}

bool SiblingOrder::operator()(std::string_view left, const TreeNode* right) const {
    return compareIgnoringCase(left, right->text()) < 0;
}

void StructureTree::linkBefore(TreeNode& parent, TreeNode& node, TreeNode* successor) {
    node.parent_ = &parent;
    node.next_ = successor;
    node.previous_ = successor != nullptr ? successor->previous_ : parent.lastChild_;
    (node.previous_ != nullptr ? node.previous_->next_ : parent.firstChild_) = &node;
    (successor != nullptr ? successor->previous_ : parent.lastChild_) = &node;
    ++parent.childCount_;
}

TreeNode* StructureTree::find(const Key& key) const {
    TreeNode* const* node = index_.find(key);
    return node == nullptr ? nullptr : *node;
}

TreeNode& StructureTree::at(const Key& key) const {
    TreeNode* node = find(key);
    if (node == nullptr) throw RuntimeError(ErrorNumber::ElementNotFound);
    return *node;
}

const TreeNode* StructureTree::childNamed(const TreeNode& parent, NodeTag tag, std::string_view text,
                                          const TreeNode* except) {
    const auto matches = [&](const TreeNode* child) {
        return child->tag() == tag && child != except && child->text() == text;
    };
    if (parent.sorted_ != nullptr) {
        const auto [first, last] = parent.sorted_->equal_range(text);
        const auto place = std::find_if(first, last, matches);
        return place == last ? nullptr : *place;
    }
    const TreeNode* child = parent.firstChild_;
    while (child != nullptr && !matches(child)) child = child->next_;
    return child;
}

void StructureTree::keepSorted(TreeNode& node) {
    if (node.sorted_ != nullptr) return;
    node.sorted_ = std::make_unique<TreeNode::SortedChildren>();
    if (node.childCount_ < 2) {
        if (node.firstChild_ != nullptr) node.sorted_->insert(node.firstChild_);
        return;
    }
    std::vector<TreeNode*> children;
    children.reserve(node.childCount_);
    for (TreeNode* child = node.firstChild_; child != nullptr; child = child->next_)
        children.push_back(child);
    const bool inOrder = std::ranges::is_sorted(children, SiblingOrder{});
    if (!inOrder) std::ranges::stable_sort(children, SiblingOrder{});
    for (TreeNode* child : children) node.sorted_->insert(node.sorted_->end(), child);
    if (inOrder) return;
    node.firstChild_ = node.lastChild_ = nullptr;
    node.childCount_ = 0;
    for (TreeNode* child : children) linkBefore(node, *child, nullptr);
    if (observer_ != nullptr) observer_->childrenSorted(node);
}

void StructureTree::select(TreeNode* node) {
    selected_ = node;
    if (observer_ != nullptr) observer_->selectionChanged(node);
}

void StructureTree::setExpanded(TreeNode& node, bool expanded) {
    if (node.expanded_ == expanded) return;
    node.expanded_ = expanded;
    if (observer_ != nullptr) observer_->expansionChanged(node);
}

void StructureTree::ensureVisible(const TreeNode& node) {
    for (TreeNode* up = node.parent_; up != nullptr; up = up->parent_) {
        if (!up->expanded_) setExpanded(*up, true);
    }
    if (observer_ != nullptr) observer_->madeVisible(node);
}

void StructureTree::setDropHighlight(TreeNode* node) {
    if (highlight_ == node) return;
    highlight_ = node;
    if (observer_ != nullptr) observer_->highlightChanged(node);
}

StructureTree::Batch::Batch(StructureTree& tree) : tree_(tree) {
    if (tree_.observer_ != nullptr) tree_.observer_->batchBegins();
}

StructureTree::Batch::~Batch() {
    if (tree_.observer_ != nullptr) tree_.observer_->batchEnds();
}

bool liesIn(const TreeNode* node, const TreeNode& top) {
    while (node != nullptr && node != &top) node = node->parent();
    return node != nullptr;
}

TreeNode* nextBelow(const TreeNode& node, const TreeNode& top) {
    if (node.firstChild() != nullptr) return node.firstChild();
    for (const TreeNode* up = &node; up != &top; up = up->parent()) {
        if (up->nextSibling() != nullptr) return up->nextSibling();
    }
    return nullptr;
}

TreeNode* lastBelow(TreeNode& top) {
    TreeNode* node = &top;
    while (node->lastChild() != nullptr) node = node->lastChild();
    return node;
}

TreeNode* previousBelow(const TreeNode& node, const TreeNode& top) {
    if (&node == &top) return nullptr;
    TreeNode* before = node.previousSibling();
    return before == nullptr ? node.parent() : lastBelow(*before);
}

}  // namespace trevandix
