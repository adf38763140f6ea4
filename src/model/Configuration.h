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
    std::int16_t itemCounter = 0;
    std::int16_t dataTypeCounter = 0;
    /// Raised by edits that replace no record: comments, and nodes without records of their own.
    std::uint64_t otherEdits = 0;
    /// What `Configuration::edits` was when the configuration was begun, opened or saved.
    std::uint64_t editsOnDisk = 0;
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

    /// Another number after every edit of what a file would hold.
    std::uint64_t edits() const;
    /// Another number after every edit and every change of the tree's order besides.
    std::uint64_t changes() const { return edits() + tree.changes(); }
    /// There is nothing to lose: all edits so far are in the file, or given up.
    void markUnchanged() { state.editsOnDisk = edits(); }
    bool changed() const { return edits() != state.editsOnDisk; }

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
    TreeNode& addNodeOfLastDataType();
    TreeNode& addNodeOfLastUnit();
    TreeNode& addNodeOfLastBranch(TreeNode& parent);

    // Each puts the record, under its own key, in the place of the one under the node's key, and gives the
    // node its key and name. Everything below a unit or branch follows with keys of its own. Errors:
    // InvalidCall when the node has no record; KeyInCollection, KeyNotUnique.
    void replaceItem(TreeNode& node, std::shared_ptr<clsItem> record);
    void replaceBranch(TreeNode& node, std::shared_ptr<clsBranch> record);
    void replaceUnit(TreeNode& node, std::shared_ptr<clsPLC> record);
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
};

/// The key of a record called `name` in `node`, or, for a record edited in place, beside it.
Key makeKey(std::string_view name, const TreeNode& node, bool useParent);

}  // namespace trevandix
