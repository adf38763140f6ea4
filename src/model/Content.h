#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <tuple>

#include "model/EditableTree.h"
#include "model/EditingState.h"
#include "model/KeyedCollection.h"
#include "model/clsBranch.h"
#include "model/clsItem.h"
#include "model/clsModBusType.h"
#include "model/clsPLC.h"

namespace trevandix {

/// What `Configuration` owns, and the steps in which alone its edits change it. Each step changes one thing
/// and could be taken back by another one. No step keeps records and nodes in agreement: that is what the
/// edits are for. Only `Configuration` and its helpers have a changeable one.
class Content {
public:
    template <typename Record>
    const KeyedCollection<Record>& records() const {
        return std::get<KeyedCollection<Record>>(collections_);
    }
    const StructureTree& tree() const { return tree_; }
    /// For the view's state, which is no part of what the steps change.
    StructureTree& view() { return tree_; }

    /// Another number after every step that a file would show.
    std::uint64_t revision() const { return tree_.edits() + recordEdits_; }

    // Steps on collections.
    /// Puts the record at the end of its collection. Errors: KeyInCollection.
    template <typename Record>
    void put(std::shared_ptr<Record> record, const Key& key) {
        collection<Record>().add(std::move(record), key);
    }
    /// Puts the record under `from` at the end, under another key as well. Errors: InvalidCall,
    /// KeyInCollection.
    template <typename Record>
    std::shared_ptr<Record> share(const Key& from, const Key& key) {
        const std::shared_ptr<Record> record = collection<Record>().at(from);
        put(record, key);
        return record;
    }
    /// Errors: InvalidCall when there is no such record.
    template <typename Record>
    std::shared_ptr<Record> take(const Key& key) {
        return collection<Record>().remove(key);
    }
    template <typename Record>
    void clear() {
        collection<Record>().clear();
    }

    // Steps on a record, in every place that shares it.
    template <typename Record>
    void setRecordKey(const std::shared_ptr<Record>& record, const Key& key) {
        record->sKey(key);
    }
    void setName(const std::shared_ptr<clsItem>& item, std::string_view name);
    /// Errors: InvalidCall when there is no such item.
    void setComment(const Key& item, std::string_view comment);
    /// For a change of records that no other step shows as a new revision.
    void touch() { ++recordEdits_; }

    // Steps on nodes, as those of the tree.
    void addRoot(std::string_view text, const NodeLook& look) { tree_.addRoot(text, look); }
    TreeNode& link(TreeNode& parent, const Key& key, std::string_view text, const NodeLook& look) {
        return tree_.addChild(parent, key, text, look);
    }
    /// The node goes with everything below it.
    void unlink(TreeNode& node) { tree_.remove(node); }
    void setKey(TreeNode& node, const Key& key) { tree_.setKey(node, key); }
    void setText(TreeNode& node, std::string_view text) { tree_.setText(node, text); }
    void clearTree() { tree_.clear(); }

private:
    template <typename Record>
    KeyedCollection<Record>& collection() {
        return std::get<KeyedCollection<Record>>(collections_);
    }

    std::tuple<KeyedCollection<clsPLC>, KeyedCollection<clsItem>, KeyedCollection<clsBranch>,
               KeyedCollection<clsModBusType>>
        collections_;
    EditableTree tree_;
    std::uint64_t recordEdits_ = 0;
};

}  // namespace trevandix
