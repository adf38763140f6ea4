#include "model/EditableTree.h"

#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

EditableTree::~EditableTree() {
    observer_ = nullptr;
    clear();
}

TreeNode* EditableTree::create(const Key& key, std::string_view text, const NodeLook& look) {
    auto node = std::make_unique<TreeNode>();
    node->key_ = key;
    node->text_ = text;
    node->look_ = look;
    if (!key.empty() && !index_.insert(node.get())) throw RuntimeError(ErrorNumber::KeyNotUnique);
    node->addedBefore_ = lastAdded_;
    enterAdded(*node);
    return node.release();
}

// Enters the node into the order of addition, between the neighbours that it names.
void EditableTree::enterAdded(TreeNode& node) {
    (node.addedBefore_ != nullptr ? node.addedBefore_->addedAfter_ : firstAdded_) = &node;
    (node.addedAfter_ != nullptr ? node.addedAfter_->addedBefore_ : lastAdded_) = &node;
    ++size_;
}

// The node keeps its neighbours in the order of addition, so that it can go back between them.
void EditableTree::forget(TreeNode& node) {
    if (!node.key_.empty()) index_.erase(node.key_);
    (node.addedBefore_ != nullptr ? node.addedBefore_->addedAfter_ : firstAdded_) = node.addedAfter_;
    (node.addedAfter_ != nullptr ? node.addedAfter_->addedBefore_ : lastAdded_) = node.addedBefore_;
    if (highlight_ == &node) highlight_ = nullptr;
    --size_;
}

TreeNode& EditableTree::addRoot(std::string_view text, const NodeLook& look) {
    if (root_ != nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
    root_ = create({}, text, look);
    if (observer_ != nullptr) observer_->nodeAdded(*root_);
    return *root_;
}

TreeNode& EditableTree::addChild(TreeNode& parent, const Key& key, std::string_view text,
                                 const NodeLook& look) {
    TreeNode* node = create(key, text, look);
    linkBefore(parent, *node, sortedPlace(parent, *node));
    if (observer_ != nullptr) observer_->nodeAdded(*node);
    return *node;
}

void EditableTree::unlink(TreeNode& node) {
    TreeNode& parent = *node.parent_;
    (node.previous_ != nullptr ? node.previous_->next_ : parent.firstChild_) = node.next_;
    (node.next_ != nullptr ? node.next_->previous_ : parent.lastChild_) = node.previous_;
    --parent.childCount_;
}

// Enters the node among its sorted siblings, before one of them or behind all of equal text. Returns the
// sibling that follows it; nullptr for the end, and where nothing is sorted.
TreeNode* EditableTree::sortedPlace(TreeNode& parent, TreeNode& node, TreeNode* before) {
    if (parent.sorted_ == nullptr) return nullptr;
    TreeNode::SortedChildren& children = *parent.sorted_;
    const auto place =
        before == nullptr
            ? children.insert(&node)
            : children.insert(std::find(children.lower_bound(before), children.end(), before), &node);
    const auto next = std::next(place);
    return next == children.end() ? nullptr : *next;
}

void EditableTree::forgetInSortedOrder(TreeNode& node) {
    if (node.parent_ == nullptr || node.parent_->sorted_ == nullptr) return;
    auto [place, end] = node.parent_->sorted_->equal_range(&node);
    place = std::find(place, end, &node);
    if (place != end) node.parent_->sorted_->erase(place);
}

EditableTree::Detached EditableTree::detach(TreeNode& node) {
    if (observer_ != nullptr) observer_->nodeRemoved(node);
    const bool selectionGoes = liesIn(selected_, node);
    TreeNode* successor = node.next_ != nullptr       ? node.next_
                          : node.previous_ != nullptr ? node.previous_
                                                      : node.parent_;
    forgetInSortedOrder(node);
    unlink(node);
    if (selectionGoes) selected_ = nullptr;
    for (TreeNode* n = &node; n != nullptr; n = nextBelow(*n, node)) forget(*n);
    if (selectionGoes) select(successor);
    return Detached(&node);
}

TreeNode& EditableTree::attach(Detached detached, TreeNode* place) {
    TreeNode& node = *detached.release();
    TreeNode& parent = *node.parent_;
    linkBefore(parent, node, parent.sorted_ != nullptr ? sortedPlace(parent, node, place) : node.next_);
    // Against the order in which they were forgotten, so that each finds its neighbours.
    for (TreeNode* n = lastBelow(node); n != nullptr; n = previousBelow(*n, node)) {
        if (!n->key_.empty()) index_.insert(n);
        enterAdded(*n);
    }
    if (observer_ != nullptr) observer_->nodeAdded(node);
    return node;
}

// Below a parent that is not sorted yet, a later sorting decides by the siblings of equal text.
TreeNode* EditableTree::placeOf(const TreeNode& node) {
    TreeNode* place = node.next_;
    if (node.parent_ == nullptr || node.parent_->sorted_ != nullptr) return place;
    while (place != nullptr && compareIgnoringCase(place->text_, node.text_) != 0) place = place->next_;
    return place;
}

// Without recursion: a file may nest branches as deeply as it likes.
void EditableTree::Destroy::operator()(TreeNode* top) const {
    TreeNode* node = top;
    while (true) {
        while (node->firstChild_ != nullptr) node = node->firstChild_;
        if (node == top) break;
        TreeNode* parent = node->parent_;
        parent->firstChild_ = node->next_;
        delete node;
        node = parent;
    }
    delete top;
}

void EditableTree::clear() {
    if (root_ == nullptr) return;
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

void EditableTree::setText(TreeNode& node, std::string_view text, TreeNode* place) {
    if (node.text_ == text) return;
    const bool sorted = node.parent_ != nullptr && node.parent_->sorted_ != nullptr;
    if (sorted) forgetInSortedOrder(node);
    node.text_ = text;
    if (observer_ != nullptr) observer_->textChanged(node);
    if (!sorted) return;
    TreeNode* successor = sortedPlace(*node.parent_, node, place);
    if (successor == node.next_) return;
    unlink(node);
    linkBefore(*node.parent_, node, successor);
    if (observer_ != nullptr) observer_->nodeMoved(node);
}

void EditableTree::setKey(TreeNode& node, const Key& key) {
    if (node.key_ == key) return;
    if (index_.find(key) != nullptr) throw RuntimeError(ErrorNumber::KeyNotUnique);
    if (!node.key_.empty()) index_.erase(node.key_);
    node.key_ = key;
    if (!key.empty()) index_.insert(&node);
}

}  // namespace trevandix
