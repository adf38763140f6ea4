#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/Content.h"
#include "model/EditingState.h"
#include "model/StepName.h"

namespace trevandix {

struct ItemRenaming;

/// The key of the folder that holds the data types. Units and data types are keyed by bare names, so neither
/// can have this name.
inline constexpr std::string_view kModBusFolder = "ModBus";

/// The open configuration: records in four keyed collections, their nodes in the tree, and the editing state.
/// Everyone may read them and change view state (selection, expansion, sorting). What a file would hold
/// changes only through the edits below. Each node except the first and the ModBus folder has a record with
/// the same key. An edit changes collection and tree together or, if it throws, neither; exceptions are
/// stated. Edits of an open configuration can be undone.
class Configuration {
    Content content_;
    EditingState state_;

public:
    const KeyedCollection<clsPLC>& units = content_.records<clsPLC>();
    const KeyedCollection<clsItem>& items = content_.records<clsItem>();
    const KeyedCollection<clsBranch>& branches = content_.records<clsBranch>();
    const KeyedCollection<clsModBusType>& dataTypes = content_.records<clsModBusType>();
    StructureTree& tree = content_.view();
    const EditingState& state = state_;

    /// Changes whenever what a file would hold changes. Sorting the children of a selected node does not
    /// count.
    std::uint64_t revision() const { return content_.revision(); }
    /// True if there are edits since the last open, save or close.
    bool changed() const { return revision() != baseRevision_; }
    /// True while the content equals the file's. Unlike `EditingState::saved`, this follows every edit.
    bool equalsFile() const { return inFile_ && !changed(); }

    // A configuration as a whole.
    /// Removes all nodes and empties the copy buffer. Keeps collections, flags and counters.
    void clearTree();
    /// Begins an empty configuration on a cleared tree: no records, all counters 0. Adds the first node,
    /// which shows the path and is selected, and the ModBus folder, and makes both visible.
    void begin(std::string_view filePath);
    /// Begins a new configuration, which is open and not yet in a file.
    void beginNew(std::string_view filePath);
    /// Ends reading a file: the configuration is open and saved, and default names continue after those read.
    void endLoad();
    /// The file now equals the configuration.
    void markSaved() { setBase(true); }
    /// The file differs from the configuration.
    void markUnsaved();
    /// Releases units, branches and items; the configuration counts as unchanged. Keeps the open flag.
    void close();
    void setOpen(bool open) { state_.configurationOpen = open; }
    void setSaved(bool saved) { state_.saved = saved; }
    void setInterfaceKind(std::string_view kind) { state_.interfaceKind = kind; }
    /// Sets the file path together with the first node's text.
    void setFilePath(std::string_view path);

    // Each adds the record under its own key and its node at the end (or the sorted place) below `parent`.
    // Errors: InvalidCall for an empty key, KeyInCollection, KeyNotUnique.
    /// Below the ModBus folder. A node of that name without a record gets this one. Errors: ElementNotFound
    /// if there is no ModBus folder.
    TreeNode& addDataType(clsModBusType record);
    /// Below the first node. A unit read from a file also has an image for the selected state.
    TreeNode& addUnit(clsPLC record, bool fromFile = false);
    TreeNode& addBranch(clsBranch record, TreeNode& parent);
    TreeNode& addItem(clsItem record, TreeNode& parent, Image selectedImage = Image::Item);

    // Each replaces the node's record and gives the node the new record's key and name. Everything below a
    // unit or branch gets new keys too. Errors: InvalidCall if the node has no record; KeyInCollection,
    // KeyNotUnique.
    void replaceItem(TreeNode& node, clsItem record);
    void replaceBranch(TreeNode& node, clsBranch record);
    void replaceUnit(TreeNode& node, clsPLC record);
    /// The node keeps its key and text. The old record is removed even if the new name is taken. Errors:
    /// InvalidCall, KeyInCollection.
    void replaceDataType(const Key& editedName, clsModBusType record);

    /// Applies to all items that share the record. Errors: InvalidCall if there is no such item.
    void setComment(const Key& item, std::string_view comment);
    /// Renames many items at once, so that they can exchange names. Stores the result of each in `renamings`.
    void renameItems(std::vector<ItemRenaming>& renamings);

    // Each removes record and node, with everything below them. Errors: InvalidCall for a node without a
    // record; records removed before it stay removed.
    void removeItem(Key key);
    void removeBranch(TreeNode& node);
    void removeUnit(TreeNode& node);

    /// Copies `source` and everything below it to `target`, which must not lie below `source`. Copied items
    /// and branches share their records with the source; the record's key becomes that of the copy. A node of
    /// another kind is copied without a record and without what is below it. Errors: KeyNotUnique, with
    /// nothing changed if `source` itself is refused; KeyInCollection, InvalidCall. On an error, what was
    /// copied before stays, and so does the node that failed.
    TreeNode& copySubtree(const TreeNode& source, TreeNode& target);
    /// Completes a move that began with `copySubtree`: removes the source, everything below it, and the
    /// entries of the records that the copy shares. Errors: as `removeBranch`.
    void removeMoved(TreeNode& source);

    // The history. New, Open and Close empty it; Save does not.
    /// All edits during its lifetime form one step, even if one of them fails.
    class Step {
    public:
        /// The edits name the step ("Delete 3 items"); `verb` replaces their verb.
        explicit Step(Configuration& configuration, std::string_view verb = {});
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

        /// Names the whole step, instead of its edits.
        void setName(std::string name);
        /// Undoes everything that the outermost step has changed so far, the saved flag included. What it has
        /// undone cannot be redone.
        void takeBack();

    private:
        Configuration& configuration_;
        bool saved_;
    };
    /// Ends the current step and begins another one, for a dialog that stays open. A `Step` exists.
    void beginNextStep();
    /// Names of the steps that can be undone and redone next; empty when there is none, and during a step.
    std::string_view undoName() const;
    std::string_view redoName() const;
    /// Undoes or redoes what the step changed in the content and in the numbers of default names. Sorted
    /// siblings stay sorted. The saved flag then says whether the content equals the file. Selects the node
    /// that was selected before (undo) or after (redo) the step. The step must exist.
    void undo();
    void redo();

    // The numbers of the next default names, and the copy buffer.
    /// Errors: Overflow.
    void raiseCounter(NodeTag kind);
    /// Puts the item into the slot and removes all slots behind it. Errors: InvalidCall if there is no such
    /// item; the slots behind are removed then, too.
    void setCopySlot(std::size_t slot, const Key& item);
    void resetPasteCounter() { state_.pasteCounter = 0; }
    /// Errors: Overflow.
    void raisePasteCounter();

private:
    void tell(std::string_view verb, NodeTag tag, std::string_view name);
    void beginStep();
    void endStep();
    Journal::Moment moment() const;
    void turnBack(Journal::Step& step);
    void arriveAt(const Journal::Moment& moment);
    template <typename Record>
    TreeNode& add(std::shared_ptr<Record> record, const Key& key, TreeNode& parent, std::string_view name,
                  const NodeLook& look);
    template <typename Record>
    void replace(TreeNode& node, const std::shared_ptr<Record>& record, const Key& key,
                 std::string_view text);
    void setBase(bool inFile) {
        baseRevision_ = revision();
        inFile_ = inFile;
    }

    std::uint64_t baseRevision_ = 0;
    bool inFile_ = false;
    bool hasHistory_ = false;
    int steps_ = 0;  // nesting depth of `Step`s
    StepName stepName_{};
};

/// The unit in which a file would hold the node: the outermost node around it, or itself, if that is a unit
/// with a record. nullptr for none, and for nullptr.
const TreeNode* unitAround(const Configuration& configuration, const TreeNode* node);

/// The key of a record called `name` in `node`, or with `useParent` in the parent of `node`.
Key makeKey(std::string_view name, const TreeNode& node, bool useParent);

}  // namespace trevandix
