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

StructureTree::StructureTree() = default;

StructureTree::~StructureTree() {
    observer_ = nullptr;
    clear();
}

TreeNode* StructureTree::create(const Key& key, std::string_view text, const NodeLook& look) {
    auto node = std::make_unique<TreeNode>();
    node->key_ = key;
    node->text_ = text;
    node->look_ = look;
    if (!key.empty() && !index_.insert(node.get())) throw RuntimeError(ErrorNumber::KeyNotUnique);
    node->addedBefore_ = lastAdded_;
    (lastAdded_ != nullptr ? lastAdded_->addedAfter_ : firstAdded_) = node.get();
    lastAdded_ = node.get();
    ++size_;
    return node.release();
}

void StructureTree::destroy(TreeNode* node) {
    if (!node->key_.empty()) index_.erase(node->key_);
    (node->addedBefore_ != nullptr ? node->addedBefore_->addedAfter_ : firstAdded_) = node->addedAfter_;
    (node->addedAfter_ != nullptr ? node->addedAfter_->addedBefore_ : lastAdded_) = node->addedBefore_;
    if (highlight_ == node) highlight_ = nullptr;
    --size_;
    delete node;
}

TreeNode& StructureTree::addRoot(std::string_view text, const NodeLook& look) {
    if (root_ != nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
    root_ = create({}, text, look);
    if (observer_ != nullptr) observer_->nodeAdded(*root_);
    return *root_;
}

TreeNode& StructureTree::addChild(TreeNode& parent, const Key& key, std::string_view text,
                                  const NodeLook& look) {
    TreeNode* node = create(key, text, look);
    linkBefore(parent, *node, sortedPlace(parent, *node));
    ++edits_;
    if (observer_ != nullptr) observer_->nodeAdded(*node);
    return *node;
}

void StructureTree::linkBefore(TreeNode& parent, TreeNode& node, TreeNode* successor) {
    node.parent_ = &parent;
    node.next_ = successor;
    node.previous_ = successor != nullptr ? successor->previous_ : parent.lastChild_;
    (node.previous_ != nullptr ? node.previous_->next_ : parent.firstChild_) = &node;
    (successor != nullptr ? successor->previous_ : parent.lastChild_) = &node;
    ++parent.childCount_;
}

void StructureTree::unlink(TreeNode& node) {
    TreeNode& parent = *node.parent_;
    (node.previous_ != nullptr ? node.previous_->next_ : parent.firstChild_) = node.next_;
    (node.next_ != nullptr ? node.next_->previous_ : parent.lastChild_) = node.previous_;
    --parent.childCount_;
}

// Where the node belongs among its siblings: the node that follows it, or nullptr for the end. Enters it
// there.
TreeNode* StructureTree::sortedPlace(TreeNode& parent, TreeNode& node) {
    if (parent.sorted_ == nullptr) return nullptr;
    const auto place = std::next(parent.sorted_->insert(&node));
    return place == parent.sorted_->end() ? nullptr : *place;
}

void StructureTree::forgetInSortedOrder(TreeNode& node) {
    if (node.parent_ == nullptr || node.parent_->sorted_ == nullptr) return;
    auto [place, end] = node.parent_->sorted_->equal_range(&node);
    place = std::find(place, end, &node);
    if (place != end) node.parent_->sorted_->erase(place);
}

void StructureTree::remove(TreeNode& node) {
    ++edits_;
    if (observer_ != nullptr) observer_->nodeRemoved(node);
    const bool selectionGoes = liesIn(selected_, node);
    TreeNode* successor = node.next_ != nullptr       ? node.next_
                          : node.previous_ != nullptr ? node.previous_
                                                      : node.parent_;
    if (node.parent_ != nullptr) {
        forgetInSortedOrder(node);
        unlink(node);
    } else {
        root_ = nullptr;
    }
    if (selectionGoes) selected_ = nullptr;
    destroySubtree(node);
    if (selectionGoes) select(successor);
}

// Without recursion: a file may nest branches as deeply as it likes.
void StructureTree::destroySubtree(TreeNode& top) {
    TreeNode* node = &top;
    while (true) {
        while (node->firstChild_ != nullptr) node = node->firstChild_;
        if (node == &top) break;
        TreeNode* parent = node->parent_;
        parent->firstChild_ = node->next_;
        destroy(node);
        node = parent;
    }
    destroy(&top);
}

void StructureTree::clear() {
    if (root_ == nullptr) return;
    ++edits_;
    selected_ = highlight_ = nullptr;
    for (TreeNode* node = firstAdded_; node != nullptr;) {
        TreeNode* next = node->addedAfter_;
        delete node;
        node = next;
    }
    index_ = {};
    root_ = firstAdded_ = lastAdded_ = nullptr;
    size_ = 0;
    if (observer_ != nullptr) observer_->cleared();
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

void StructureTree::setText(TreeNode& node, std::string_view text) {
    if (node.text_ == text) return;
    if (&node != root_) ++edits_;
    const bool sorted = node.parent_ != nullptr && node.parent_->sorted_ != nullptr;
    if (sorted) forgetInSortedOrder(node);
    node.text_ = text;
    if (observer_ != nullptr) observer_->textChanged(node);
    if (!sorted) return;
    TreeNode* successor = sortedPlace(*node.parent_, node);
    if (successor == node.next_) return;
    unlink(node);
    linkBefore(*node.parent_, node, successor);
    if (observer_ != nullptr) observer_->nodeMoved(node);
}

void StructureTree::setKey(TreeNode& node, const Key& key) {
    if (node.key_ == key) return;
    if (index_.find(key) != nullptr) throw RuntimeError(ErrorNumber::KeyNotUnique);
    if (!node.key_.empty()) index_.erase(node.key_);
    node.key_ = key;
    if (!key.empty()) index_.insert(&node);
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

}  // namespace trevandix
