#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "model/EditableTree.h"
#include "model/EditingState.h"
#include "model/KeyedCollection.h"
#include "model/clsBranch.h"
#include "model/clsItem.h"
#include "model/clsModBusType.h"
#include "model/clsPLC.h"

namespace trevandix {

// One thing that was changed, with what it takes to change it back and forth: each turn leaves here what the
// next one needs. Texts are keys, as these are small and shared.
struct NodeChange {
    TreeNode* node;
    EditableTree::Detached out{};  ///< holds the node while it is not in the tree
    TreeNode* place = nullptr;
};
struct NodeTextChange {
    TreeNode* node;
    Key other;
    TreeNode* place;
};
template <typename Record>
struct EntryChange {
    typename KeyedCollection<Record>::Seat seat;
};
/// An entry that shares the record of another one, and the record's key.
template <typename Record>
struct ShareChange {
    typename KeyedCollection<Record>::Seat seat;
    Key other;
};
struct NameChange {
    std::shared_ptr<clsItem> item;
    Key other;
};
struct CommentChange {
    std::shared_ptr<clsItem> item;
    Key other;
};
/// A node that gets another key, together with its record.
struct Rekeying {
    TreeNode* node;
    Key key;
    Key recordKey;  ///< differs from the node's key in a record that is shared
    std::variant<KeyedCollection<clsItem>::Move, KeyedCollection<clsBranch>::Move> move;
};
/// Many at once, as they may exchange their keys.
struct KeyChange {
    std::vector<Rekeying> all;
    bool back = false;
};
/// Of a node alone.
struct NodeKeyChange {
    TreeNode* node;
    Key other;
};
using Change = std::variant<NodeChange, NodeTextChange, EntryChange<clsPLC>, EntryChange<clsItem>,
                            EntryChange<clsBranch>, EntryChange<clsModBusType>, ShareChange<clsItem>,
                            ShareChange<clsBranch>, NameChange, CommentChange, KeyChange, NodeKeyChange>;

/// The history of the open configuration: steps to take back, from the oldest on, and steps taken back. It
/// holds what is no longer in the configuration. Bounded by memory: the oldest steps go first, the newest
/// stays whatever its size.
class Journal {
public:
    /// What a step leads from or to, besides its changes.
    struct Moment {
        TreeNode* selected = nullptr;
        std::uint64_t revision = 0;
        Counters counters{};
    };
    struct Step {
        std::string name;  ///< such as "Delete 3 items"
        Moment before, after{};
        std::deque<Change> changes{};
        std::size_t bytes = 0;  ///< about what it keeps in memory
    };

    /// Bytes of all steps together.
    static constexpr std::size_t kMostBytes = std::size_t{256} << 20;

    /// Between `begin` and `end`, changes are noted. A step without changes is none; any other ends what
    /// could be redone.
    void begin(const Moment& before);
    bool noting() const { return noting_; }
    /// `bytes` is what the change keeps in memory besides itself, about, now or after an Undo.
    template <typename Noted>
    void note(Noted change, std::size_t bytes) {
        open_.bytes += sizeof(Change) + bytes;
        open_.changes.emplace_back(std::move(change));
    }
    /// For a change that has been taken back by other means.
    void dropLast() { open_.changes.pop_back(); }
    void end(std::string name, const Moment& after);

    /// The step that Undo takes back next and the one that Redo does again; nullptr when there is none.
    const Step* undoable() const { return done_.empty() ? nullptr : &done_.back(); }
    const Step* redoable() const { return undone_.empty() ? nullptr : &undone_.back(); }
    /// Moves that step to the other side. The caller turns its changes, the last one first for an Undo.
    Step& undo();
    Step& redo();
    void clear();

private:
    std::deque<Step> done_;
    std::deque<Step> undone_;  // the one undone last at the end
    Step open_{};
    bool noting_ = false;
    std::size_t bytes_ = 0;  // of done_
};

}  // namespace trevandix
