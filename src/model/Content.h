#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "model/Journal.h"

namespace trevandix {

/// A node and the key that it is to get.
struct NewKey {
    TreeNode* node;
    Key wanted;
    const Key& key() const { return wanted; }
};

/// Owns the content of a `Configuration` and offers the only steps that change it. Each step changes one
/// thing and notes in the journal how to undo it. Steps do not keep records and nodes in agreement; the edits
/// of `Configuration` do. Only `Configuration` and its helpers have access to a non-const object.
class Content {
public:
    template <typename Record>
    const KeyedCollection<Record>& records() const {
        return std::get<KeyedCollection<Record>>(collections_);
    }
    const StructureTree& tree() const { return tree_; }
    /// For changes of view state, which the steps do not concern.
    StructureTree& view() { return tree_; }

    Journal& journal() { return journal_; }
    const Journal& journal() const { return journal_; }

    /// A new number after every step that changes what a file would hold. Undo restores the old number.
    std::uint64_t revision() const { return revision_; }
    void setRevision(std::uint64_t revision) { revision_ = revision; }
    /// Counts a change that no other step counts.
    void touch() { revision_ = ++lastRevision_; }

    // Steps on collections.
    /// Puts the record at the end of its collection. Errors: KeyInCollection.
    template <typename Record>
    void put(std::shared_ptr<Record> record, const Key& key) {
        const std::size_t bytes = bytesOf(*record, key);
        note(EntryChange<Record>{collection<Record>().add(std::move(record), key)}, bytes);
    }
    /// Undoes the last step, which has put the record under the key.
    template <typename Record>
    void unput(const Key& key) {
        collection<Record>().remove(key);
        if (journal_.noting()) journal_.dropLast();
    }
    /// Adds a second entry, `key`, for the record under `from`. `key` becomes the record's own key. Errors:
    /// InvalidCall, KeyInCollection.
    template <typename Record>
    void share(const Key& from, const Key& key) {
        const std::shared_ptr<Record>& record = collection<Record>().at(from);
        ShareChange<Record> change{collection<Record>().add(record, key), key};
        record->swapKey(change.other);
        note(std::move(change), kRecordBytes + kNodeBytes);
    }
    /// Removes the entry. Errors: InvalidCall if there is no such record.
    template <typename Record>
    void take(const Key& key) {
        auto seat = collection<Record>().remove(key);
        const std::size_t bytes = bytesOf(*seat.record(), key);
        note(EntryChange<Record>{std::move(seat)}, bytes);
    }

    // Steps on a record; they apply to all nodes that share it.
    /// Renames the record of the item's node and the node. Errors: InvalidCall if there is no such record.
    void rename(TreeNode& item, std::string_view name);
    /// Errors: InvalidCall when there is no such item.
    void setComment(const Key& item, std::string_view comment);

    // Steps on nodes; see `EditableTree`.
    TreeNode& link(TreeNode& parent, const Key& key, std::string_view text, const NodeLook& look);
    /// Notes nothing: the parent was linked in the same step, and Undo removes this node together with it.
    TreeNode& linkAlong(TreeNode& parent, const Key& key, std::string_view text, const NodeLook& look);
    /// Removes the node with everything below it.
    void unlink(TreeNode& node);
    void setKey(TreeNode& node, const Key& key);
    void setText(TreeNode& node, std::string_view text);

    /// Gives items and branches, nodes and records, new keys. They may exchange keys; apart from that the new
    /// keys must be free. Errors: InvalidCall for a node without a record, with nothing changed.
    void rekey(const std::vector<NewKey>& keys);

    /// Undoes a noted change, or redoes it after that.
    void turn(Change& change);

    // Steps that clear the history.
    template <typename Record>
    void clear() {
        journal_.clear();
        collection<Record>().clear();
    }
    void clearTree();

    // The first node, which no step changes. Its text is not saved.
    void addRoot(std::string_view text, const NodeLook& look) { tree_.addRoot(text, look); }
    void setRootText(std::string_view text) { tree_.setText(*tree_.root(), text); }

private:
    template <typename Record>
    KeyedCollection<Record>& collection() {
        return std::get<KeyedCollection<Record>>(collections_);
    }
    KeyedCollection<clsItem>& collectionOf(const KeyedCollection<clsItem>::Move&) {
        return collection<clsItem>();
    }
    KeyedCollection<clsBranch>& collectionOf(const KeyedCollection<clsBranch>::Move&) {
        return collection<clsBranch>();
    }

    std::tuple<KeyedCollection<clsPLC>, KeyedCollection<clsItem>, KeyedCollection<clsBranch>,
               KeyedCollection<clsModBusType>>
        collections_;
    // Approximate bytes of a node and of a record, with index entries.
    static constexpr std::size_t kNodeBytes = sizeof(TreeNode) + 64;
    static constexpr std::size_t kRecordBytes = sizeof(clsItem) + 128;

    template <typename Record>
    static std::size_t bytesOf(const Record&, const Key& key) {
        return kRecordBytes + key.view().size();
    }
    static std::size_t bytesOf(const clsItem& item, const Key& key) {
        return kRecordBytes + key.view().size() + item.sName().size() + item.sComment().size();
    }

    template <typename Noted>
    void note(Noted&& change, std::size_t bytes) {
        if (journal_.noting()) journal_.note(std::forward<Noted>(change), bytes);
    }
    void turnIt(NodeChange& change);
    void turnIt(NodeKeyChange& change);
    void turnIt(NodeTextChange& change);
    template <typename Record>
    void turnIt(EntryChange<Record>& change) {
        collection<Record>().flip(change.seat);
    }
    template <typename Record>
    void turnIt(ShareChange<Record>& change) {
        change.seat.record()->swapKey(change.other);
        collection<Record>().flip(change.seat);
    }
    static void turnIt(NameChange& change);
    static void turnIt(CommentChange& change);
    void turnIt(KeyChange& change);

    EditableTree tree_;
    Journal journal_;
    std::uint64_t revision_ = 0;
    std::uint64_t lastRevision_ = 0;
};

}  // namespace trevandix
