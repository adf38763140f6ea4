#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/Content.h"
#include "model/EditingState.h"

namespace trevandix {

struct ItemRenaming;

/// The key of the folder that holds the data types. Units and data types are keyed by bare names, so neither
/// can have this name.
inline constexpr std::string_view kModBusFolder = "ModBus";

/// The one open configuration: records in four keyed collections, their nodes in the tree, and the editing
/// state. Everyone may look at them and change what only concerns the view; what a file would hold changes
/// through the edits below and in no other way. Every node but the first and the ModBus folder has its record
/// under the same key. The edits keep it so, apart from the few that say otherwise, and each changes
/// collection and tree together or, when it throws, neither. Edits of an open configuration can be undone.
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

    /// Revision number; changes whenever what a file would hold changes. The order that selecting a node
    /// gives to its children is no change.
    std::uint64_t revision() const { return content_.revision(); }
    /// True when there is something to lose: edits since the last mark.
    bool changed() const { return revision() != baseRevision_; }
    /// True while the content equals the file's. Unlike `EditingState::saved`, this follows every edit.
    bool equalsFile() const { return inFile_ && !changed(); }

    // A configuration as a whole.
    /// Removes all nodes, and empties the copy buffer. Collections, flags and counters stay.
    void clearTree();
    /// Begins an empty configuration at the path, on a cleared tree: no records, all counters 0, the first
    /// node, selected, with the path as text, and the ModBus folder; both shown.
    void begin(std::string_view filePath);
    /// Begins a new one, which is open, and in no file.
    void beginNew(std::string_view filePath);
    /// What was added since `begin` stands in the file: open, saved, default names go on behind the records.
    void endLoad();
    /// The file at the path holds exactly this.
    void markSaved() { setBase(true); }
    /// Whatever the file at the path holds, it is not this.
    void markUnsaved();
    /// Releases units, branches and items; there is nothing to lose any more. The open flag stays.
    void close();
    void setOpen(bool open) { state_.configurationOpen = open; }
    void setSaved(bool saved) { state_.saved = saved; }
    void setInterfaceKind(std::string_view kind) { state_.interfaceKind = kind; }
    /// Sets the file path together with the first node's text.
    void setFilePath(std::string_view path);

    // Each adds the record under its own key and its node at the end (or the sorted place) below `parent`.
    // Errors: InvalidCall for an empty key, KeyInCollection, KeyNotUnique.
    /// Below the ModBus folder. A node of that name that has lost its record gets this one. Errors:
    /// ElementNotFound where there is no ModBus folder.
    TreeNode& addDataType(clsModBusType record);
    /// Below the first node. Units read from a file have a picture for the selected state too.
    TreeNode& addUnit(clsPLC record, bool fromFile = false);
    TreeNode& addBranch(clsBranch record, TreeNode& parent);
    TreeNode& addItem(clsItem record, TreeNode& parent, Image selectedImage = Image::Item);

    // Each puts the record, under its own key, in the place of the one under the node's key, and gives the
    // node its key and name. Everything below a unit or branch follows with keys of its own. Errors:
    // InvalidCall when the node has no record; KeyInCollection, KeyNotUnique.
    void replaceItem(TreeNode& node, clsItem record);
    void replaceBranch(TreeNode& node, clsBranch record);
    void replaceUnit(TreeNode& node, clsPLC record);
    /// The node keeps its key and text. The old record is gone even when the new name is taken. Errors:
    /// InvalidCall, KeyInCollection.
    void replaceDataType(const Key& editedName, clsModBusType record);

    /// Also for the other places that share the record. Errors: InvalidCall when there is no such item.
    void setComment(const Key& item, std::string_view comment);
    /// Renames many items at once, so that names can be swapped among them. What came of each is told in it.
    void renameItems(std::vector<ItemRenaming>& renamings);

    // Each removes record and node, a branch with everything below it. Errors: InvalidCall for a node without
    // a record; what was removed from the collections before is gone.
    void removeItem(Key key);
    void removeBranch(TreeNode& node);
    void removeUnit(TreeNode& node);

    /// Adds nodes like `source` and everything below it to `target`, which does not lie in it. Items and
    /// branches share their records with the source; each record names the new place as its own. Nodes of
    /// other kinds have no record to follow them, and nothing below them is copied. Errors: KeyNotUnique,
    /// with nothing changed when `source` itself is refused; KeyInCollection, InvalidCall. What was copied
    /// before stays, and so does the node that the failure is about.
    TreeNode& copySubtree(const TreeNode& source, TreeNode& target);
    /// Ends a move that began with `copySubtree`: removes the source with all below it, and those of its
    /// records that the copy shares. Errors: as of `removeBranch`.
    void removeMoved(TreeNode& source);

    // The history. New, Open and Close empty it; Save does not.
    /// While one lives, all edits are one step, also when the last one failed.
    class Step {
    public:
        /// The step is named by its edits ("Delete 3 items"), but with this verb if one is given.
        explicit Step(Configuration& configuration, std::string_view verb = {});
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

    private:
        Configuration& configuration_;
    };
    /// Begins another step within a `Step`, for a dialog that stays open.
    void beginNextStep();
    /// Names of the steps that can be undone and redone next; empty when there is none, and during a step.
    std::string_view undoName() const;
    std::string_view redoName() const;
    /// Takes back everything that the step changed in what a file would hold and in the numbers of default
    /// names, or does it again. Sorted siblings stay sorted. The saved flag becomes that of the content.
    /// Selects the node that was selected before the step, or after it. There is such a step.
    void undo();
    void redo();

    // The numbers of the next default names, and the copy buffer.
    /// Errors: Overflow.
    void raiseCounter(NodeTag kind);
    /// Makes the slot the buffer's last and puts the item there; the slots before it stay. Errors:
    /// InvalidCall when there is no such item; the slot is the last one then, too.
    void setCopySlot(std::size_t slot, const Key& item);
    void resetPasteCounter() { state_.pasteCounter = 0; }
    /// Errors: Overflow.
    void raisePasteCounter();

private:
    /// For the name of the open step: the verb, and the number, kind and first name of the objects edited.
    struct Deed {
        std::string verb;
        bool verbStays = false;
        NodeTag tag{};
        std::string name{};
        std::size_t count = 0;
    };

    void tell(std::string_view verb, NodeTag tag, std::string_view name);
    void beginStep();
    void endStep();
    std::string stepName() const;
    Journal::Moment moment() const;
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
    int steps_ = 0;  // of those that live, one in the other
    Deed deed_{};
};

/// The key of a record called `name` in `node`, or, for a record edited in place, beside it.
Key makeKey(std::string_view name, const TreeNode& node, bool useParent);

}  // namespace trevandix
