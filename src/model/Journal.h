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

// One change, with what is needed to undo it; undoing it stores what is needed to redo it. Texts are held as
// keys, which take the least memory.
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
/// All nodes of a step that may exchange their keys.
struct KeyChange {
    std::vector<Rekeying> all;
    bool back = false;
};
/// A node that gets another key without its record.
struct NodeKeyChange {
    TreeNode* node;
    Key other;
};
using Change = std::variant<NodeChange, NodeTextChange, EntryChange<clsPLC>, EntryChange<clsItem>,
                            EntryChange<clsBranch>, EntryChange<clsModBusType>, ShareChange<clsItem>,
                            ShareChange<clsBranch>, NameChange, CommentChange, KeyChange, NodeKeyChange>;

/// The history of the open configuration: the steps that can be undone and those that can be redone. It owns
/// the nodes and records that are not in the configuration now. Its memory is bounded: the oldest steps are
/// dropped first; the newest stays whatever its size.
class Journal {
public:
    /// The state before or after a step, besides its changes.
    struct Moment {
        TreeNode* selected = nullptr;
        std::uint64_t revision = 0;
        Counters counters{};
    };
    struct Step {
        std::string name;  ///< such as "Delete 3 items"
        Moment before, after{};
        std::deque<Change> changes{};
        std::size_t bytes = 0;  ///< approximate memory
    };

    /// Bytes of all steps together.
    static constexpr std::size_t kMostBytes = std::size_t{256} << 20;

    /// Changes are noted between `begin` and `end`. A step without changes is discarded; any other clears the
    /// steps to redo.
    void begin(const Moment& before);
    bool noting() const { return noting_; }
    /// The step that is being noted.
    Step& open() { return open_; }
    /// `bytes` is approximately what the change keeps in memory besides itself, now or once undone.
    template <typename Noted>
    void note(Noted change, std::size_t bytes) {
        open_.bytes += sizeof(Change) + bytes;
        open_.changes.emplace_back(std::move(change));
    }
    /// Discards the last change, which the caller has reverted.
    void dropLast() { open_.changes.pop_back(); }
    void end(std::string name, const Moment& after);

    /// The step that Undo takes back next and the one that Redo does again; nullptr when there is none.
    const Step* undoable() const { return done_.empty() ? nullptr : &done_.back(); }
    const Step* redoable() const { return undone_.empty() ? nullptr : &undone_.back(); }
    /// Moves that step to the other list. The caller turns its changes: in reverse order for Undo.
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
