#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/KeyedCollection.h"
#include "model/StructureTree.h"
#include "model/clsBranch.h"
#include "model/clsItem.h"
#include "model/clsModBusType.h"
#include "model/clsPLC.h"

namespace trevandix {

/// The key of the folder that holds the data types. Units and data types are keyed by bare names, so neither
/// can have this name.
inline constexpr std::string_view kModBusFolder = "ModBus";

/// What all windows share about the open configuration.
struct EditingState {
    /// Has a value from the start, so that a closed interface dialog never leaves a configuration without a
    /// kind.
    std::string interfaceKind{kTcpIp};
    bool configurationOpen = false;
    bool saved = false;
    std::string filePath;
    /// References to live records from slot 1 on; slot 0 is never filled.
    std::vector<std::shared_ptr<clsItem>> copyBuffer;
    std::int16_t pasteCounter = 0;
    std::int16_t unitCounter = 0;
    std::int16_t branchCounter = 0;
    std::uint32_t itemCounter = 0;  ///< wider than the others: a plant may have more than 32767 items
    std::int16_t dataTypeCounter = 0;
};

/// The one open configuration: records in four keyed collections, their nodes in the tree, and the editing
/// state. Every node but the first and the ModBus folder has its record under the same key; the members below
/// keep it so: each changes collection and tree together or, when it throws, neither.
class Configuration {
public:
    KeyedCollection<clsPLC> units;
    KeyedCollection<clsItem> items;
    KeyedCollection<clsBranch> branches;
    KeyedCollection<clsModBusType> dataTypes;
    StructureTree tree;
    EditingState state;

    /// Revision number; changes whenever what a file would hold changes. The order that selecting a node
    /// gives to its children is no change.
    std::uint64_t revision() const { return tree.edits() + recordEdits_; }
    /// Raises the revision, for a change that shows in no node.
    void touch() { ++recordEdits_; }

    /// A configuration was begun or closed: nothing can be lost, and no file holds it.
    void markNew() { setBase(false); }
    /// The file at the path holds exactly this.
    void markSaved() { setBase(true); }
    /// True when there is something to lose: edits since the last mark.
    bool changed() const { return revision() != baseRevision_; }
    /// True while the content equals the file's. Unlike `EditingState::saved`, this follows every edit.
    bool equalsFile() const { return inFile_ && !changed(); }

    /// Four empty collections.
    void createCollections();
    /// Adds the first node, with the file path as text, and the ModBus folder below it; both shown, the first
    /// selected.
    void buildRoot();
    /// Sets the file path together with the first node's text.
    void setFilePath(std::string_view path);

    // Each adds the record under its own key and its node at the end (or the sorted place) below `parent`.
    // Errors: KeyInCollection, KeyNotUnique.
    TreeNode& addDataType(std::shared_ptr<clsModBusType> record);
    /// Below the first node. Units read from a file have a picture for the selected state too.
    TreeNode& addUnit(std::shared_ptr<clsPLC> record, bool fromFile);
    TreeNode& addBranch(std::shared_ptr<clsBranch> record, TreeNode& parent,
                        Image selectedImage = Image::Branch);
    TreeNode& addItem(std::shared_ptr<clsItem> record, TreeNode& parent, Image selectedImage = Image::Item);

    // Each gives the record added last, by a dialog, its node. The record leaves its collection again when
    // the tree refuses the node. Errors: KeyNotUnique; ElementNotFound where there is no ModBus folder.
    /// Reuses the node of that name when it has lost its record.
    TreeNode& addNodeOfLastDataType();
    TreeNode& addNodeOfLastUnit();
    TreeNode& addNodeOfLastBranch(TreeNode& parent);

    // Each puts the record, under its own key, in the place of the one under the node's key, and gives the
    // node its key and name. Everything below a unit or branch follows with keys of its own. Errors:
    // InvalidCall when the node has no record; KeyInCollection, KeyNotUnique.
    void replaceItem(TreeNode& node, std::shared_ptr<clsItem> record);
    void replaceBranch(TreeNode& node, std::shared_ptr<clsBranch> record);
    void replaceUnit(TreeNode& node, std::shared_ptr<clsPLC> record);
    /// Errors: InvalidCall when there is no such item.
    void setComment(const Key& item, std::string_view comment);
    /// The node keeps its key and text, and the old record is gone even when the new name is taken: kept,
    /// that is how users know it. Errors: InvalidCall, KeyInCollection.
    void replaceDataType(const Key& editedName, std::shared_ptr<clsModBusType> record);

private:
    template <typename Record>
    TreeNode& addNode(KeyedCollection<Record>& collection, const Key& key, TreeNode& parent,
                      std::string_view text, const NodeLook& look);
    template <typename Record>
    void replace(KeyedCollection<Record>& collection, TreeNode& node, std::shared_ptr<Record> record,
                 const Key& key, std::string_view text);
    template <typename Record>
    TreeNode& add(KeyedCollection<Record>& collection, std::shared_ptr<Record> record, const Key& key,
                  TreeNode& parent, std::string_view text, const NodeLook& look);
    void setBase(bool inFile) {
        baseRevision_ = revision();
        inFile_ = inFile;
    }

    std::uint64_t recordEdits_ = 0;
    std::uint64_t baseRevision_ = 0;
    bool inFile_ = false;
};

/// The key of a record called `name` in `node`, or, for a record edited in place, beside it.
Key makeKey(std::string_view name, const TreeNode& node, bool useParent);

}  // namespace trevandix
