#include "model/Content.h"

namespace trevandix {

void Content::setName(const std::shared_ptr<clsItem>& item, std::string_view name) {
    if (item->sName() == name) return;
    note(ItemTextChange{item, true, item->sName()});
    item->sName(name);
    touch();
}

void Content::setComment(const Key& item, std::string_view comment) {
    const std::shared_ptr<clsItem> record = collection<clsItem>().at(item);
    if (record->sComment() == comment) return;
    note(ItemTextChange{record, false, record->sComment()});
    record->sComment(comment);
    touch();
}

TreeNode& Content::link(TreeNode& parent, const Key& key, std::string_view text, const NodeLook& look) {
    TreeNode& node = tree_.addChild(parent, key, text, look);
    note(NodeChange{&node});
    touch();
    return node;
}

void Content::unlink(TreeNode& node) {
    TreeNode* place = EditableTree::placeOf(node);
    note(NodeChange{&node, tree_.detach(node), place});
    touch();
}

void Content::setKey(TreeNode& node, const Key& key) {
    const Key before = node.key();
    tree_.setKey(node, key);
    note(NodeKeyChange{&node, before});
}

void Content::setText(TreeNode& node, std::string_view text) {
    if (node.text() == text) return;
    note(NodeTextChange{&node, node.text(), EditableTree::placeOf(node)});
    tree_.setText(node, text);
    touch();
}

void Content::clearTree() {
    journal_.clear();
    tree_.clear();
    touch();
}

void Content::turn(Change& change) {
    std::visit([this](auto& each) { turnIt(each); }, change);
}

void Content::turnIt(NodeChange& change) {
    if (change.out != nullptr) {
        tree_.attach(std::move(change.out), change.place);
    } else {
        change.place = EditableTree::placeOf(*change.node);
        change.out = tree_.detach(*change.node);
    }
}

void Content::turnIt(NodeKeyChange& change) {
    const Key now = change.node->key();
    tree_.setKey(*change.node, std::exchange(change.other, now));
}

void Content::turnIt(NodeTextChange& change) {
    std::string now = change.node->text();
    TreeNode* place = EditableTree::placeOf(*change.node);
    tree_.setText(*change.node, std::exchange(change.other, std::move(now)), change.place);
    change.place = place;
}

void Content::turnIt(ItemTextChange& change) {
    clsItem& item = *change.item;
    std::string now = change.isName ? item.sName() : item.sComment();
    change.isName ? item.sName(change.other) : item.sComment(change.other);
    change.other = std::move(now);
}

}  // namespace trevandix
