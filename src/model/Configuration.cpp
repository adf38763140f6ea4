#include "model/Configuration.h"

#include "model/SubtreeRekeying.h"

namespace trevandix {

void Configuration::createCollections() {
    units.clear();
    items.clear();
    branches.clear();
    dataTypes.clear();
}

void Configuration::buildRoot() {
    TreeNode& root = tree.addRoot(state.filePath, {NodeTag::Config, Image::Config});
    tree.ensureVisible(root);
    tree.select(&root);
    const TreeNode& folder =
        tree.addChild(root, Key(kModBusFolder), kModBusFolder, {NodeTag::ModBus, Image::Main});
    tree.ensureVisible(folder);
}

void Configuration::setFilePath(std::string_view path) {
    state.filePath = path;
    if (tree.root() != nullptr) tree.setText(*tree.root(), path);
}

// The record, and with it `text`, lives on in the collection.
template <typename Record>
TreeNode& Configuration::add(KeyedCollection<Record>& collection, std::shared_ptr<Record> record,
                             const Key& key, TreeNode& parent, std::string_view text, const NodeLook& look) {
    // Without a key the node could never be found again, not even to save it.
    if (key.empty()) throw RuntimeError(ErrorNumber::InvalidCall, "a name is missing");
    collection.add(std::move(record), key);
    return addNode(collection, key, parent, text, look);
}

template <typename Record>
TreeNode& Configuration::addNode(KeyedCollection<Record>& collection, const Key& key, TreeNode& parent,
                                 std::string_view text, const NodeLook& look) {
    try {
        return tree.addChild(parent, key, text, look);
    } catch (...) {
        collection.remove(key);
        throw;
    }
}

TreeNode& Configuration::addDataType(std::shared_ptr<clsModBusType> record) {
    const std::string& name = record->getName();
    const Key key(name);
    return add(dataTypes, std::move(record), key, tree.at(Key(kModBusFolder)), name,
               {NodeTag::DataType, Image::Item});
}

TreeNode& Configuration::addUnit(std::shared_ptr<clsPLC> record, bool fromFile) {
    if (tree.root() == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const Key key = record->sKey();
    const std::string& name = record->getName();
    const NodeLook look{NodeTag::Plc, Image::Plc, fromFile ? Image::Plc : Image::None};
    return add(units, std::move(record), key, *tree.root(), name, look);
}

TreeNode& Configuration::addBranch(std::shared_ptr<clsBranch> record, TreeNode& parent, Image selectedImage) {
    const Key key = record->sKey();
    const std::string& name = record->sName();
    return add(branches, std::move(record), key, parent, name,
               {NodeTag::Branch, Image::Branch, selectedImage});
}

TreeNode& Configuration::addItem(std::shared_ptr<clsItem> record, TreeNode& parent, Image selectedImage) {
    const Key key = record->sKey();
    const std::string& name = record->sName();
    return add(items, std::move(record), key, parent, name, {NodeTag::Item, Image::Item, selectedImage});
}

TreeNode& Configuration::addNodeOfLastDataType() {
    const std::string name = dataTypes.last()->getName();
    TreeNode* orphan = tree.find(name);
    if (orphan != nullptr && orphan->tag() == NodeTag::DataType) {
        touch();
        return *orphan;
    }
    TreeNode* folder = tree.find(Key(kModBusFolder));
    if (folder == nullptr) {  // dragged elsewhere
        dataTypes.remove(name);
        throw RuntimeError(ErrorNumber::ElementNotFound);
    }
    return addNode(dataTypes, name, *folder, name, {NodeTag::DataType, Image::Item});
}

TreeNode& Configuration::addNodeOfLastUnit() {
    const auto unit = units.last();
    return addNode(units, unit->sKey(), *tree.root(), unit->getName(), {NodeTag::Plc, Image::Plc});
}

TreeNode& Configuration::addNodeOfLastBranch(TreeNode& parent) {
    const auto branch = branches.last();
    const NodeLook look{NodeTag::Branch, Image::Branch, Image::Branch};
    return addNode(branches, branch->sKey(), parent, branch->sName(), look);
}

template <typename Record>
void Configuration::replace(KeyedCollection<Record>& collection, TreeNode& node,
                            std::shared_ptr<Record> record, const Key& key, std::string_view text) {
    const Key oldKey = node.key();
    if (!collection.contains(oldKey)) throw RuntimeError(ErrorNumber::InvalidCall);
    if (key == oldKey) {
        collection.remove(oldKey);
        collection.add(std::move(record), key);
    } else {
        collection.add(std::move(record), key);
        try {
            tree.setKey(node, key);
        } catch (...) {
            collection.remove(key);
            throw;
        }
        collection.remove(oldKey);
    }
    tree.setText(node, text);
}

void Configuration::replaceItem(TreeNode& node, std::shared_ptr<clsItem> record) {
    const auto old = items.find(node.key());
    replace(items, node, record, record->sKey(), record->sName());
    if (old->GetXmlTag(0) != record->GetXmlTag(0)) touch();
}

void Configuration::setComment(const Key& item, std::string_view comment) {
    const auto& record = items.at(item);
    if (record->sComment() == comment) return;
    record->sComment(comment);
    touch();
}

void Configuration::replaceBranch(TreeNode& node, std::shared_ptr<clsBranch> record) {
    SubtreeRekeying rekeying(*this, node, record->sKey());
    replace(branches, node, record, record->sKey(), record->sName());
    rekeying.apply();
}

// Units and data types are written in the order of their collections, where the new record comes last.
void Configuration::replaceUnit(TreeNode& node, std::shared_ptr<clsPLC> record) {
    SubtreeRekeying rekeying(*this, node, record->sKey());
    const auto old = units.find(node.key());
    const bool wasLast = old != nullptr && old == units.last();
    replace(units, node, record, record->sKey(), record->getName());
    rekeying.apply();
    if (!wasLast || old->GetXmlTag(state.interfaceKind) != record->GetXmlTag(state.interfaceKind)) touch();
}

void Configuration::replaceDataType(const Key& editedName, std::shared_ptr<clsModBusType> record) {
    const auto old = dataTypes.at(editedName);
    if (old != dataTypes.last() || old->GetXmlTag() != record->GetXmlTag()) touch();
    dataTypes.remove(editedName);
    dataTypes.add(record, record->getName());
}

Key makeKey(std::string_view name, const TreeNode& node, bool useParent) {
    const TreeNode* container = useParent ? node.parent() : &node;
    return Key(container != nullptr ? container->key() : Key(), name);
}

}  // namespace trevandix
