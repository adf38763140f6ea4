#include "check/Survey.h"

#include <algorithm>

namespace trevandix {

namespace {

constexpr int kStepsPerNode = 20;

// The next node of a walk, which leaves out what is below `node` unless `enter` is set.
const TreeNode* following(const TreeNode& node, const TreeNode& root, bool enter) {
    if (enter && node.firstChild() != nullptr) return node.firstChild();
    const TreeNode* up = &node;
    while (up != &root && up->nextSibling() == nullptr) up = up->parent();
    return up == &root ? nullptr : up->nextSibling();
}

bool contains(const std::vector<std::string>& texts, std::string_view text) {
    return std::ranges::find(texts, text) != texts.end();
}

}  // namespace

TypeFacts::TypeFacts(const std::string& type, const Configuration& configuration)
    : table(splitDataType(type).table),
      stored(type),
      dataType(configuration.dataTypes.find(Key(table)).get()),
      offered(stored.value != nullptr && contains(valueTypesOf(table), stored.value->label)) {}

RightFacts::RightFacts(const std::string& right)
    : reads(right == "READ" || right == "READWRITE"),
      writes(right == "WRITE" || right == "READWRITE"),
      marks(marksOf(right)) {}

Survey::Survey(const Configuration& surveyed, Pulse& pulse, const Intended* intended)
    : configuration(surveyed), intended_(intended), nextItem_(surveyed.items.begin()) {
    if (configuration.tree.root() == nullptr) return;  // closed, though data types stay
    objects.reserve(configuration.tree.size());
    items.reserve(configuration.items.size());
    addDataTypes();
    walk(pulse);
    if (intended_ != nullptr) addIntended();
    allRecordsFound = recordsFound_ == configuration.dataTypes.size() + configuration.units.size() +
                                           configuration.branches.size() + configuration.items.size();
}

// The file holds the records, whatever their nodes are.
const clsPLC& Survey::unitOf(const Object& object) const {
    if (intended_ != nullptr)
        if (const auto unit = intended_->units.find(*object.key); unit != intended_->units.end())
            return *unit->second;
    return *configuration.units.at(*object.key);
}

void Survey::addDataTypes() {
    for (const auto& [key, record] : configuration.dataTypes) {
        const std::string& name = record->getName();
        objects.push_back(
            {&key, name, configuration.tree.find(key), Object::kNone, NodeTag::DataType, marksOf(name)});
    }
}

void Survey::walk(Pulse& pulse) {
    struct Level {
        const TreeNode* node;
        std::uint32_t object;
    };
    const TreeNode& root = *configuration.tree.root();
    std::vector<Level> levels{{&root, Object::kNone}};
    bool enter = true;
    for (const TreeNode* node = following(root, root, true); node != nullptr;
         node = following(*node, root, enter)) {
        pulse.step(kStepsPerNode);
        while (levels.back().node != node->parent()) levels.pop_back();
        const bool placed = hasPlace(*node);
        const std::size_t before = objects.size();
        if (!placed)
            misplaced.push_back(node);
        else if (!add(*node, levels.back().object))
            bare.push_back(node);
        const bool added = objects.size() > before;
        // Nothing below a unit without a record is written, and only the unit is worth telling.
        enter = placed && (added || node->tag() != NodeTag::Plc);
        if (enter && node->firstChild() != nullptr)
            levels.push_back({node, added ? static_cast<std::uint32_t>(before) : Object::kNone});
    }
}

bool Survey::hasPlace(const TreeNode& node) const {
    const NodeTag parent = node.parent()->tag();
    switch (node.tag()) {
        case NodeTag::ModBus:
        case NodeTag::Plc:
            return parent == NodeTag::Config;
        case NodeTag::DataType:
            return parent == NodeTag::ModBus;
        case NodeTag::Branch:
        case NodeTag::Item:
            return parent == NodeTag::Plc || parent == NodeTag::Branch;
        case NodeTag::Config:
            break;
    }
    return false;
}

bool Survey::add(const TreeNode& node, std::uint32_t container) {
    const auto place = static_cast<std::uint32_t>(objects.size());
    bool found = true;
    switch (node.tag()) {
        case NodeTag::DataType:
            found = configuration.dataTypes.contains(node.key());
            break;
        case NodeTag::Plc: {
            const auto record = configuration.units.find(node.key());
            found = record != nullptr;
            if (!found) break;
            unit_ = place;
            objects.push_back(
                {&node.key(), record->getName(), &node, container, NodeTag::Plc, marksOf(record->getName())});
            break;
        }
        case NodeTag::Branch:
            found = configuration.branches.contains(node.key());
            objects.push_back(
                {&node.key(), node.text(), &node, container, NodeTag::Branch, marksOf(node.text())});
            break;
        case NodeTag::Item:
            found = addItem(node, container);
            break;
        case NodeTag::ModBus:
        case NodeTag::Config:
            return true;
    }
    if (found) ++recordsFound_;
    return found;
}

bool Survey::addItem(const TreeNode& node, std::uint32_t container) {
    const clsItem* own = recordOf(node);
    if (own == nullptr) return false;
    const clsItem& record = intended_ == nullptr ? *own : intended_->recordOf(node, *own);
    addItem(record, node.key(), &record == own ? &node : nullptr, container);
    return true;
}

void Survey::addItem(const clsItem& record, const Key& key, const TreeNode* node, std::uint32_t container) {
    items.push_back({&record, &typeFacts(record), &rightFacts(record),
                     static_cast<std::uint32_t>(objects.size()), unit_, record.nAddress(),
                     record.nBitNumber(), record.nElements(), marksOf(record.sComment())});
    objects.push_back({&key, record.sName(), node, container, NodeTag::Item, marksOf(record.sName())});
}

void Survey::addIntended() {
    std::unordered_map<const TreeNode*, std::uint32_t> existing;
    std::unordered_map<const IntendedContainer*, std::uint32_t> made;
    for (std::uint32_t i = 0; i < objects.size(); ++i)
        if (objects[i].tag == NodeTag::Plc || objects[i].tag == NodeTag::Branch)
            existing[objects[i].node] = i;
    const auto placeOf = [&](const IntendedContainer* around) {
        std::vector<const IntendedContainer*> missing;
        const IntendedContainer* at = around;
        for (; at->node == nullptr && !made.contains(at); at = at->above) missing.push_back(at);
        std::uint32_t place = Object::kNone;
        if (at->node == nullptr)
            place = made.at(at);
        else if (const auto found = existing.find(at->node); found != existing.end())
            place = found->second;
        for (auto each = missing.rbegin(); each != missing.rend(); ++each) {
            objects.push_back(
                {&(*each)->key, (*each)->name, nullptr, place, NodeTag::Branch, marksOf((*each)->name)});
            place = made[*each] = static_cast<std::uint32_t>(objects.size() - 1);
        }
        return place;
    };
    for (const IntendedItem& item : intended_->items) {
        if (item.node != nullptr) continue;
        const std::uint32_t container = placeOf(item.container);
        unit_ = container;
        while (unit_ != Object::kNone && objects[unit_].tag != NodeTag::Plc) unit_ = objects[unit_].container;
        if (unit_ != Object::kNone) addItem(*item.record, item.record->sKey(), nullptr, container);
    }
}

const clsItem* Survey::recordOf(const TreeNode& node) {
    const auto& records = configuration.items;
    const bool expected = nextItem_ != records.end() && (*nextItem_).first == node.key();
    if (!expected && !records.contains(node.key())) return nullptr;
    return &records.at(node.key(), nextItem_);
}

const TypeFacts& Survey::typeFacts(const clsItem& item) {
    const std::string& type = item.sDataType();
    return types_.try_emplace(&type, type, configuration).first->second;
}

const RightFacts& Survey::rightFacts(const clsItem& item) {
    const std::string& right = item.sAccessRight();
    return rights_.try_emplace(&right, right).first->second;
}

}  // namespace trevandix
