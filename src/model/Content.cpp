#include "model/Content.h"

#include <algorithm>

namespace trevandix {

void Content::rename(TreeNode& item, std::string_view name) {
    const std::shared_ptr<clsItem> record = collection<clsItem>().at(item.key());
    if (record->sName() != name) {
        note(NameChange{record, record->sName()}, record->sName().size());
        record->sName(name);
        touch();
    }
    setText(item, name);
}

void Content::setComment(const Key& item, std::string_view comment) {
    const std::shared_ptr<clsItem> record = collection<clsItem>().at(item);
    if (record->sComment() == comment) return;
    note(CommentChange{record, record->sComment()}, record->sComment().size());
    record->sComment(comment);
    touch();
}

TreeNode& Content::link(TreeNode& parent, const Key& key, std::string_view text, const NodeLook& look) {
    TreeNode& node = linkAlong(parent, key, text, look);
    note(NodeChange{&node}, kNodeBytes);
    return node;
}

TreeNode& Content::linkAlong(TreeNode& parent, const Key& key, std::string_view text, const NodeLook& look) {
    TreeNode& node = tree_.addChild(parent, key, text, look);
    touch();
    return node;
}

void Content::unlink(TreeNode& node) {
    const std::size_t before = tree_.size();
    TreeNode* place = EditableTree::placeOf(node);
    auto out = tree_.detach(node);
    note(NodeChange{&node, std::move(out), place}, (before - tree_.size()) * kNodeBytes);
    touch();
}

void Content::setKey(TreeNode& node, const Key& key) {
    const Key before = node.key();
    tree_.setKey(node, key);
    note(NodeKeyChange{&node, before}, before.view().size());
}

void Content::setText(TreeNode& node, std::string_view text) {
    if (node.text() == text) return;
    note(NodeTextChange{&node, node.text(), EditableTree::placeOf(node)}, node.text().size());
    tree_.setText(node, text);
    touch();
}

void Content::rekey(const std::vector<NewKey>& keys) {
    if (keys.empty()) return;
    KeyChange change;
    change.all.reserve(keys.size());
    for (const auto& [node, key] : keys) {
        if (node->tag() == NodeTag::Item) {
            change.all.push_back({node, key, key, collection<clsItem>().moveOf(node->key())});
        } else {
            change.all.push_back({node, key, key, collection<clsBranch>().moveOf(node->key())});
        }
    }
    turnIt(change);
    const std::size_t bytes = keys.size() * (sizeof(Rekeying) + 64);
    note(std::move(change), bytes);
}

void Content::clearTree() {
    journal_.clear();
    tree_.clear();
    touch();
}

void Content::turn(Change& change) {
    std::visit([this](auto& each) { this->turnIt(each); }, change);
}

void Content::turnIt(NodeChange& change) {
    if (change.out != nullptr) {
        tree_.attach(std::move(change.out), change.place);
    } else {
        change.out = tree_.detach(*change.node);
    }
}

void Content::turnIt(NodeKeyChange& change) {
    const Key now = change.node->key();
    tree_.setKey(*change.node, std::exchange(change.other, now));
}

void Content::turnIt(NodeTextChange& change) {
    const Key now = change.node->text();
    TreeNode* place = EditableTree::placeOf(*change.node);
    tree_.setText(*change.node, std::exchange(change.other, now).view(), change.place);
    change.place = place;
}

void Content::turnIt(NameChange& change) {
    const Key now = change.item->sName();
    change.item->sName(std::exchange(change.other, now).view());
}

void Content::turnIt(CommentChange& change) {
    const Key now = change.item->sComment();
    change.item->sComment(std::exchange(change.other, now).view());
}

void Content::turnIt(KeyChange& change) {
    for (Rekeying& each : change.all) {
        std::visit([this](auto& move) { this->collectionOf(move).release(move); }, each.move);
        tree_.setKey(*each.node, Key());
    }
    const auto settle = [&](Rekeying& each) {
        tree_.setKey(*each.node, each.key);
        std::visit(
            [&](auto& move) {
                move.record()->swapKey(each.recordKey);
                change.back ? this->collectionOf(move).settleBack(move, each.key)
                            : this->collectionOf(move).settle(move, each.key);
            },
            each.move);
    };
    if (change.back) {
        std::for_each(change.all.rbegin(), change.all.rend(), settle);
    } else {
        std::for_each(change.all.begin(), change.all.end(), settle);
    }
    change.back = !change.back;
}

}  // namespace trevandix
