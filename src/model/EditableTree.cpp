#include "model/EditableTree.h"

#include <algorithm>

#include "platform/RuntimeError.h"

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
    (lastAdded_ != nullptr ? lastAdded_->addedAfter_ : firstAdded_) = node.get();
    lastAdded_ = node.get();
    ++size_;
    return node.release();
}

// The node keeps its neighbours in the order of addition, so that it could go back between them.
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
    ++edits_;
    if (observer_ != nullptr) observer_->nodeAdded(*node);
    return *node;
}

void EditableTree::unlink(TreeNode& node) {
    TreeNode& parent = *node.parent_;
    (node.previous_ != nullptr ? node.previous_->next_ : parent.firstChild_) = node.next_;
    (node.next_ != nullptr ? node.next_->previous_ : parent.lastChild_) = node.previous_;
    --parent.childCount_;
}

// Where the node belongs among its siblings: the node that follows it, or nullptr for the end. Enters it
// there.
TreeNode* EditableTree::sortedPlace(TreeNode& parent, TreeNode& node) {
    if (parent.sorted_ == nullptr) return nullptr;
    const auto place = std::next(parent.sorted_->insert(&node));
    return place == parent.sorted_->end() ? nullptr : *place;
}

void EditableTree::forgetInSortedOrder(TreeNode& node) {
    if (node.parent_ == nullptr || node.parent_->sorted_ == nullptr) return;
    auto [place, end] = node.parent_->sorted_->equal_range(&node);
    place = std::find(place, end, &node);
    if (place != end) node.parent_->sorted_->erase(place);
}

void EditableTree::remove(TreeNode& node) {
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
    for (TreeNode* n = &node; n != nullptr; n = nextBelow(*n, node)) forget(*n);
    destroy(node);
    if (selectionGoes) select(successor);
}

// Without recursion: a file may nest branches as deeply as it likes.
void EditableTree::destroy(TreeNode& top) {
    TreeNode* node = &top;
    while (true) {
        while (node->firstChild_ != nullptr) node = node->firstChild_;
        if (node == &top) break;
        TreeNode* parent = node->parent_;
        parent->firstChild_ = node->next_;
        delete node;
        node = parent;
    }
    delete &top;
}

void EditableTree::clear() {
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

void EditableTree::setText(TreeNode& node, std::string_view text) {
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

void EditableTree::setKey(TreeNode& node, const Key& key) {
    if (node.key_ == key) return;
    if (index_.find(key) != nullptr) throw RuntimeError(ErrorNumber::KeyNotUnique);
    if (!node.key_.empty()) index_.erase(node.key_);
    node.key_ = key;
    if (!key.empty()) index_.insert(&node);
}

}  // namespace trevandix
