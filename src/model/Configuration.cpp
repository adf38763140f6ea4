#include "model/Configuration.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "model/ItemRenaming.h"
#include "model/NodeEditing.h"
#include "model/Numbers.h"
#include "model/SubtreeRekeying.h"

namespace trevandix {

namespace {

// Default names go on behind the records that were read; the counter stops at its 16-bit limit.
std::int16_t counterBehind(std::size_t records) {
    constexpr std::size_t kLimit = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(records + 1, kLimit));
}

}  // namespace

void Configuration::clearTree() {
    content_.clearTree();
    state_.copyBuffer.assign(1, nullptr);
    state_.pasteCounter = 1;
}

void Configuration::begin(std::string_view filePath) {
    content_.clear<clsPLC>();
    content_.clear<clsItem>();
    content_.clear<clsBranch>();
    content_.clear<clsModBusType>();
    state_.unitCounter = state_.branchCounter = state_.dataTypeCounter = 0;
    state_.itemCounter = 0;
    state_.filePath = filePath;
    content_.addRoot(filePath, {NodeTag::Config, Image::Config});
    tree.ensureVisible(*tree.root());
    tree.select(tree.root());
    tree.ensureVisible(
        content_.link(*tree.root(), Key(kModBusFolder), kModBusFolder, {NodeTag::ModBus, Image::Main}));
}

void Configuration::beginNew(std::string_view filePath) {
    begin(filePath);
    state_.configurationOpen = true;
    state_.saved = false;
    setBase(false);
}

void Configuration::endLoad() {
    state_.dataTypeCounter = counterBehind(dataTypes.size());
    state_.itemCounter = static_cast<std::uint32_t>(items.size()) + 1;
    state_.branchCounter = counterBehind(branches.size());
    state_.unitCounter = counterBehind(units.size());
    state_.configurationOpen = true;
    state_.saved = true;
    markSaved();
}

void Configuration::markUnsaved() {
    state_.saved = false;
    content_.touch();
}

void Configuration::close() {
    content_.clear<clsItem>();
    content_.clear<clsPLC>();
    content_.clear<clsBranch>();
    setBase(false);
}

void Configuration::setFilePath(std::string_view path) {
    state_.filePath = path;
    if (tree.root() != nullptr) content_.setText(*tree.root(), path);
}

// The record, and with it `name`, lives on in the collection.
template <typename Record>
TreeNode& Configuration::add(std::shared_ptr<Record> record, const Key& key, TreeNode& parent,
                             std::string_view name, const NodeLook& look) {
    // Without a key the node could never be found again, not even to save it.
    if (key.empty()) throw RuntimeError(ErrorNumber::InvalidCall, "a name is missing");
    content_.put(std::move(record), key);
    try {
        return content_.link(parent, key, name, look);
    } catch (...) {
        content_.take<Record>(key);
        throw;
    }
}

TreeNode& Configuration::addDataType(clsModBusType record) {
    const auto added = std::make_shared<clsModBusType>(std::move(record));
    const Key key = added->getName();
    TreeNode* orphan = tree.find(key);
    if (orphan == nullptr || orphan->tag() != NodeTag::DataType) {
        TreeNode& folder = tree.at(Key(kModBusFolder));  // it may have been dragged elsewhere
        return add(added, key, folder, added->getName(), {NodeTag::DataType, Image::Item});
    }
    content_.put(added, key);
    content_.touch();
    return *orphan;
}

TreeNode& Configuration::addUnit(clsPLC record, bool fromFile) {
    if (tree.root() == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const auto added = std::make_shared<clsPLC>(std::move(record));
    const NodeLook look{NodeTag::Plc, Image::Plc, fromFile ? Image::Plc : Image::None};
    return add(added, added->sKey(), *tree.root(), added->getName(), look);
}

TreeNode& Configuration::addBranch(clsBranch record, TreeNode& parent) {
    const auto added = std::make_shared<clsBranch>(std::move(record));
    const NodeLook look{NodeTag::Branch, Image::Branch, Image::Branch};
    return add(added, added->sKey(), parent, added->sName(), look);
}

TreeNode& Configuration::addItem(clsItem record, TreeNode& parent, Image selectedImage) {
    const auto added = std::make_shared<clsItem>(std::move(record));
    const NodeLook look{NodeTag::Item, Image::Item, selectedImage};
    return add(added, added->sKey(), parent, added->sName(), look);
}

template <typename Record>
void Configuration::replace(TreeNode& node, const std::shared_ptr<Record>& record, const Key& key,
                            std::string_view text) {
    const Key oldKey = node.key();
    if (!content_.records<Record>().contains(oldKey)) throw RuntimeError(ErrorNumber::InvalidCall);
    if (key == oldKey) {
        content_.take<Record>(oldKey);
        content_.put(record, key);
    } else {
        content_.put(record, key);
        try {
            content_.setKey(node, key);
        } catch (...) {
            content_.take<Record>(key);
            throw;
        }
        content_.take<Record>(oldKey);
    }
    content_.setText(node, text);
}

void Configuration::replaceItem(TreeNode& node, clsItem record) {
    const auto old = items.find(node.key());
    const auto added = std::make_shared<clsItem>(std::move(record));
    replace(node, added, added->sKey(), added->sName());
    if (old->GetXmlTag(0) != added->GetXmlTag(0)) content_.touch();
}

void Configuration::replaceBranch(TreeNode& node, clsBranch record) {
    const auto added = std::make_shared<clsBranch>(std::move(record));
    SubtreeRekeying rekeying(content_, node, added->sKey());
    replace(node, added, added->sKey(), added->sName());
    rekeying.apply();
}

// Units and data types are written in the order of their collections, where the new record comes last.
void Configuration::replaceUnit(TreeNode& node, clsPLC record) {
    const auto added = std::make_shared<clsPLC>(std::move(record));
    SubtreeRekeying rekeying(content_, node, added->sKey());
    const auto old = units.find(node.key());
    const bool wasLast = old != nullptr && old == units.last();
    replace(node, added, added->sKey(), added->getName());
    rekeying.apply();
    const std::string_view kind = state_.interfaceKind;
    if (!wasLast || old->GetXmlTag(kind) != added->GetXmlTag(kind)) content_.touch();
}

void Configuration::replaceDataType(const Key& editedName, clsModBusType record) {
    const auto old = dataTypes.at(editedName);
    if (old != dataTypes.last() || old->GetXmlTag() != record.GetXmlTag()) content_.touch();
    const Key name = record.getName();
    content_.take<clsModBusType>(editedName);
    content_.put(std::make_shared<clsModBusType>(std::move(record)), name);
}

void Configuration::renameItems(std::vector<ItemRenaming>& renamings) {
    trevandix::renameItems(content_, renamings);
}

void Configuration::removeItem(Key key) {
    content_.take<clsItem>(key);
    content_.unlink(tree.at(key));
}

void Configuration::removeBranch(TreeNode& node) {
    RemoveBranch(content_, node);
    content_.take<clsBranch>(node.key());
    content_.unlink(node);
}

void Configuration::removeUnit(TreeNode& node) {
    content_.take<clsPLC>(node.key());
    content_.unlink(node);
}

TreeNode& Configuration::copySubtree(const TreeNode& source, TreeNode& target) {
    TreeNode& placed = recreate(content_, source, target);
    if (source.tag() == NodeTag::Branch) CopySubTree(content_, source, placed);
    return placed;
}

void Configuration::removeMoved(TreeNode& source) {
    if (source.tag() == NodeTag::Item) return removeItem(source.key());
    if (source.tag() == NodeTag::Branch) return removeBranch(source);
    content_.unlink(source);
}

void Configuration::raiseCounter(NodeTag kind) {
    switch (kind) {
        case NodeTag::DataType:
            state_.dataTypeCounter = raised(state_.dataTypeCounter);
            break;
        case NodeTag::Plc:
            state_.unitCounter = raised(state_.unitCounter);
            break;
        case NodeTag::Branch:
            state_.branchCounter = raised(state_.branchCounter);
            break;
        case NodeTag::Item:
            ++state_.itemCounter;
            break;
        case NodeTag::Config:
        case NodeTag::ModBus:
            break;
    }
}

void Configuration::setCopySlot(std::size_t slot, const Key& item) {
    state_.copyBuffer.resize(slot + 1);
    state_.copyBuffer[slot] = items.at(item);
}

void Configuration::raisePasteCounter() {
    state_.pasteCounter = raised(state_.pasteCounter);
}

Key makeKey(std::string_view name, const TreeNode& node, bool useParent) {
    const TreeNode* container = useParent ? node.parent() : &node;
    return Key(container != nullptr ? container->key() : Key(), name);
}

}  // namespace trevandix
