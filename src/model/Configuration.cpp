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

constexpr std::uint64_t kNoRevision = std::numeric_limits<std::uint64_t>::max();

// Default names continue after the records that were read; the counter stops at its 16-bit limit.
std::int16_t counterBehind(std::size_t records) {
    constexpr std::size_t kLimit = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(records + 1, kLimit));
}

}  // namespace

void Configuration::clearTree() {
    hasHistory_ = false;
    content_.clearTree();
    state_.copyBuffer.assign(1, nullptr);
    state_.pasteCounter = 1;
}

void Configuration::begin(std::string_view filePath) {
    hasHistory_ = false;
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
    hasHistory_ = true;
}

void Configuration::endLoad() {
    state_.dataTypeCounter = counterBehind(dataTypes.size());
    state_.itemCounter = static_cast<std::uint32_t>(items.size()) + 1;
    state_.branchCounter = counterBehind(branches.size());
    state_.unitCounter = counterBehind(units.size());
    state_.configurationOpen = true;
    state_.saved = true;
    markSaved();
    hasHistory_ = true;
}

void Configuration::markUnsaved() {
    state_.saved = false;
    baseRevision_ = kNoRevision;
}

void Configuration::close() {
    hasHistory_ = false;
    content_.clear<clsItem>();
    content_.clear<clsPLC>();
    content_.clear<clsBranch>();
    setBase(false);
}

void Configuration::setFilePath(std::string_view path) {
    state_.filePath = path;
    if (tree.root() != nullptr) content_.setRootText(path);
}

// The record, and with it `name`, lives on in the collection.
template <typename Record>
TreeNode& Configuration::add(std::shared_ptr<Record> record, const Key& key, TreeNode& parent,
                             std::string_view name, const NodeLook& look) {
    // Nothing could find a node without a key, so it could not be saved.
    if (key.empty()) throw RuntimeError(ErrorNumber::InvalidCall, "a name is missing");
    content_.put(std::move(record), key);
    try {
        return content_.link(parent, key, name, look);
    } catch (...) {
        content_.unput<Record>(key);
        throw;
    }
}

TreeNode& Configuration::addDataType(clsModBusType record) {
    const Step step(*this);
    const auto added = std::make_shared<clsModBusType>(std::move(record));
    const Key key = added->getName();
    TreeNode* node = tree.find(key);
    if (node != nullptr && node->tag() == NodeTag::DataType) {
        content_.put(added, key);
        content_.touch();
    } else {
        TreeNode& folder = tree.at(Key(kModBusFolder));  // it may have been dragged elsewhere
        node = &add(added, key, folder, added->getName(), {NodeTag::DataType, Image::Item});
    }
    tell("Add", NodeTag::DataType, added->getName());
    return *node;
}

TreeNode& Configuration::addUnit(clsPLC record, bool fromFile) {
    if (tree.root() == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const Step step(*this);
    const auto added = std::make_shared<clsPLC>(std::move(record));
    const NodeLook look{NodeTag::Plc, Image::Plc, fromFile ? Image::Plc : Image::None};
    TreeNode& node = add(added, added->sKey(), *tree.root(), added->getName(), look);
    tell("Add", NodeTag::Plc, added->getName());
    return node;
}

TreeNode& Configuration::addBranch(clsBranch record, TreeNode& parent) {
    const Step step(*this);
    const auto added = std::make_shared<clsBranch>(std::move(record));
    const NodeLook look{NodeTag::Branch, Image::Branch, Image::Branch};
    TreeNode& node = add(added, added->sKey(), parent, added->sName(), look);
    tell("Add", NodeTag::Branch, added->sName());
    return node;
}

TreeNode& Configuration::addItem(clsItem record, TreeNode& parent, Image selectedImage) {
    const Step step(*this);
    const auto added = std::make_shared<clsItem>(std::move(record));
    const NodeLook look{NodeTag::Item, Image::Item, selectedImage};
    TreeNode& node = add(added, added->sKey(), parent, added->sName(), look);
    tell("Add", NodeTag::Item, added->sName());
    return node;
}

template <typename Record>
void Configuration::replace(TreeNode& node, const std::shared_ptr<Record>& record, const Key& key,
                            std::string_view text) {
    const Key oldKey = node.key();
    if (!content_.records<Record>().contains(oldKey)) throw RuntimeError(ErrorNumber::InvalidCall);
    const bool renames = node.text() != text;
    if (key == oldKey) {
        content_.take<Record>(oldKey);
        content_.put(record, key);
    } else {
        content_.put(record, key);
        try {
            content_.setKey(node, key);
        } catch (...) {
            content_.unput<Record>(key);
            throw;
        }
        content_.take<Record>(oldKey);
    }
    content_.setText(node, text);
    tell(renames ? "Rename" : "Edit", node.tag(), text);
}

void Configuration::replaceItem(TreeNode& node, clsItem record) {
    const Step step(*this);
    const auto old = items.find(node.key());
    const auto added = std::make_shared<clsItem>(std::move(record));
    replace(node, added, added->sKey(), added->sName());
    if (*old != *added && old->GetXmlTag(0) != added->GetXmlTag(0)) content_.touch();
}

void Configuration::replaceBranch(TreeNode& node, clsBranch record) {
    const Step step(*this);
    const auto added = std::make_shared<clsBranch>(std::move(record));
    SubtreeRekeying rekeying(content_, node, added->sKey());
    replace(node, added, added->sKey(), added->sName());
    rekeying.apply();
}

// Units and data types are saved in the order of their collections, and the new record comes last there.
void Configuration::replaceUnit(TreeNode& node, clsPLC record) {
    const Step step(*this);
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
    const Step step(*this);
    const auto old = dataTypes.at(editedName);
    if (old != dataTypes.last() || old->GetXmlTag() != record.GetXmlTag()) content_.touch();
    const Key name = record.getName();
    content_.take<clsModBusType>(editedName);
    content_.put(std::make_shared<clsModBusType>(std::move(record)), name);
    tell("Edit", NodeTag::DataType, name);
}

void Configuration::setComment(const Key& item, std::string_view comment) {
    const Step step(*this);
    content_.setComment(item, comment);
    tell("Comment", NodeTag::Item, items.at(item)->sName());
}

void Configuration::renameItems(std::vector<ItemRenaming>& renamings) {
    const Step step(*this);
    trevandix::renameItems(content_, renamings);
    for (const ItemRenaming& renaming : renamings) {
        if (!renaming.failure) tell("Rename", NodeTag::Item, renaming.name);
    }
}

void Configuration::removeItem(Key key) {
    const Step step(*this);
    content_.take<clsItem>(key);
    TreeNode& node = tree.at(key);
    const std::string name = node.text();
    content_.unlink(node);
    tell("Delete", NodeTag::Item, name);
}

void Configuration::removeBranch(TreeNode& node) {
    const Step step(*this);
    const std::string name = node.text();
    RemoveBranch(content_, node);
    content_.take<clsBranch>(node.key());
    content_.unlink(node);
    tell("Delete", NodeTag::Branch, name);
}

void Configuration::removeUnit(TreeNode& node) {
    const Step step(*this);
    const std::string name = node.text();
    content_.take<clsPLC>(node.key());
    content_.unlink(node);
    tell("Delete", NodeTag::Plc, name);
}

TreeNode& Configuration::copySubtree(const TreeNode& source, TreeNode& target) {
    const Step step(*this);
    tell("Copy", source.tag(), source.text());
    TreeNode& placed = recreate(content_, source, target);
    if (source.tag() == NodeTag::Branch) CopySubTree(content_, source, placed);
    return placed;
}

void Configuration::removeMoved(TreeNode& source) {
    const Step step(*this);
    if (source.tag() == NodeTag::Item) {
        removeItem(source.key());
    } else if (source.tag() == NodeTag::Branch) {
        removeBranch(source);
    } else {
        content_.unlink(source);
    }
    stepName_.setVerb("Move");
}

Configuration::Step::Step(Configuration& configuration, std::string_view verb)
    : configuration_(configuration), saved_(configuration.state_.saved) {
    if (configuration_.steps_++ > 0) return;
    configuration_.beginStep();
    configuration_.stepName_ = StepName(verb);
}

Configuration::Step::~Step() {
    if (--configuration_.steps_ == 0) configuration_.endStep();
}

void Configuration::Step::setName(std::string name) {
    configuration_.stepName_.setWhole(std::move(name));
}

void Configuration::Step::takeBack() {
    Content& content = configuration_.content_;
    if (!content.journal().noting()) return;
    Journal::Step& step = content.journal().open();
    configuration_.turnBack(step);
    step.changes.clear();
    step.bytes = 0;
    configuration_.state_.saved = saved_;
}

void Configuration::beginStep() {
    if (hasHistory_) content_.journal().begin(moment());
}

void Configuration::endStep() {
    if (content_.journal().noting()) content_.journal().end(stepName_.text(), moment());
}

void Configuration::beginNextStep() {
    if (steps_ != 1) return;
    endStep();
    beginStep();
    stepName_.restart();
}

void Configuration::tell(std::string_view verb, NodeTag tag, std::string_view name) {
    if (content_.journal().noting()) stepName_.tell(verb, tag, name);
}

Journal::Moment Configuration::moment() const {
    return {tree.selected(), content_.revision(), state_};
}

std::string_view Configuration::undoName() const {
    const Journal::Step* step = steps_ == 0 ? content_.journal().undoable() : nullptr;
    return step == nullptr ? std::string_view() : step->name;
}

std::string_view Configuration::redoName() const {
    const Journal::Step* step = steps_ == 0 ? content_.journal().redoable() : nullptr;
    return step == nullptr ? std::string_view() : step->name;
}

void Configuration::undo() {
    turnBack(content_.journal().undo());
}

void Configuration::turnBack(Journal::Step& step) {
    std::for_each(step.changes.rbegin(), step.changes.rend(),
                  [this](Change& change) { content_.turn(change); });
    arriveAt(step.before);
}

void Configuration::redo() {
    Journal::Step& step = content_.journal().redo();
    for (Change& change : step.changes) content_.turn(change);
    arriveAt(step.after);
}

void Configuration::arriveAt(const Journal::Moment& moment) {
    content_.setRevision(moment.revision);
    static_cast<Counters&>(state_) = moment.counters;
    state_.saved = equalsFile();
    tree.select(moment.selected != nullptr ? moment.selected : tree.root());
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

const TreeNode* unitAround(const Configuration& configuration, const TreeNode* node) {
    const TreeNode* root = configuration.tree.root();
    while (node != nullptr && node->parent() != nullptr && node->parent() != root) node = node->parent();
    const bool unit =
        node != nullptr && node->tag() == NodeTag::Plc && configuration.units.contains(node->key());
    return unit ? node : nullptr;
}

Key makeKey(std::string_view name, const TreeNode& node, bool useParent) {
    const TreeNode* container = useParent ? node.parent() : &node;
    return Key(container != nullptr ? container->key() : Key(), name);
}

}  // namespace trevandix
