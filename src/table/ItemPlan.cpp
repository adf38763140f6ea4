#include <algorithm>
#include <unordered_map>
#include <variant>

#include "model/ItemRenaming.h"
#include "model/ValueTypes.h"
#include "table/Containers.h"
#include "table/Plan.h"

namespace trevandix {

namespace {

constexpr std::size_t kUnit = columnCalled("Unit", kItemColumns);
constexpr std::size_t kBranch = columnCalled("Branch", kItemColumns);
constexpr std::size_t kName = columnCalled("Name", kItemColumns);
constexpr std::size_t kNewName = columnCalled("New Name", kItemColumns);
constexpr std::size_t kBit = columnCalled("Bit", kItemColumns);
constexpr std::size_t kElements = columnCalled("Elements", kItemColumns);

/// What the dialog's lists offer for an item of a table.
class Choices {
public:
    explicit Choices(const Configuration& configuration) : bits_(bitNumbers()) {
        for (const auto& [key, type] : configuration.dataTypes) tables_.push_back(type->getName());
    }

    const std::vector<std::string>* of(std::size_t column, const ItemFields& item) {
        const auto text = kItemColumns.at(column).text;
        if (text == &ItemFields::table) return &tables_;
        if (text == &ItemFields::bit) return hasBitNumber(item.table, item.type) ? &bits_ : nullptr;
        if (text != &ItemFields::type && text != &ItemFields::accessRight) return nullptr;
        auto& [types, rights] = ofTable_[item.table];
        if (types.empty()) types = valueTypesOf(item.table), rights = accessRightsOf(item.table);
        return text == &ItemFields::type ? &types : &rights;
    }

private:
    using Texts = std::vector<std::string>;
    Texts tables_, bits_;
    std::unordered_map<std::string, std::pair<Texts, Texts>> ofTable_;  // types and access rights
};

constexpr std::string_view kBranchTaken = "The name of its new branch is taken";

/// What becomes of an item.
struct Draft {
    Container* place = nullptr;
    TreeNode* node = nullptr;  ///< nullptr for a new item
    clsItem record{};

    bool takesName() const { return node == nullptr || node->key() != record.sKey(); }
};

/// A record made of a row, beside the old one.
struct Outcome {
    ItemFields before{};
    ItemFields fields{};
    ItemFields after{};
    clsItem record{};
    ColumnSet changed = 0;
    std::string failure{};  ///< of a number that does not fit
};

class ItemPlan : public Plan {
public:
    ItemPlan(const Configuration& configuration, const Table& table, const TableProgress& tell)
        : configuration_(configuration), table_(table), containers_(configuration), choices_(configuration) {
        Progress progress(tell, table.rows.size());
        for (const CsvRow& row : table.rows) {
            progress.step();
            add(row);
        }
        claimNames();
    }

    void apply(Configuration& configuration, const TableProgress& tell) const override;

private:
    void addItems(Configuration& configuration, Progress& progress) const;
    void add(const CsvRow& row);
    bool choose(const CsvRow& row, IntendedChange& change, Draft& draft);
    Outcome outcome(const CsvRow& row, const Container& place, const TreeNode* node, const std::string& name);
    bool fits(const CsvRow& row, const Container& place, const Container::Entry* entry) {
        return entry != nullptr && outcome(row, place, entry->node, std::string(entry->name)).changed == 0;
    }
    std::string judge(const Outcome& made, const Draft& draft);

    void claimNames();
    void claim(std::size_t draft);
    static std::string newBranches(Container* place);
    bool claimContainers(Container* place);
    bool isFree(const Key& key) const;
    void refuse(std::size_t draft, std::string_view reason);
    void settle();

    const Configuration& configuration_;
    const Table& table_;
    Containers containers_;
    Choices choices_;
    std::vector<Draft> drafts_;                     // of the changes
    std::unordered_map<Key, std::size_t> leaving_;  // renamed items, by their old key
    std::unordered_map<Key, std::variant<std::size_t, Container*>> claims_;  // who gets a key
    std::vector<Key> staying_;  // of items that were to be renamed and are not
};

/// The record of an item whose node has this key.
std::shared_ptr<const clsItem> recordOf(const Configuration& configuration, const TreeNode* node) {
    return node == nullptr ? nullptr : configuration.items.find(node->key());
}

// As the dialog does: what the type does not have is "0", and so is what nobody has entered for a type that
// has it.
void complete(ItemFields& fields, const ItemFields& before, bool otherType, bool givesBit,
              bool givesElements) {
    if (!hasBitNumber(fields.table, fields.type))
        fields.bit = otherType ? "0" : before.bit;
    else if (fields.bit.empty() && !givesBit)
        fields.bit = "0";
    if (hasElements(fields.type) && fields.elements.empty() && !givesElements) fields.elements = "0";
}

Outcome ItemPlan::outcome(const CsvRow& row, const Container& place, const TreeNode* node,
                          const std::string& name) {
    const auto old = recordOf(configuration_, node);
    Outcome made;
    if (old != nullptr) {
        made.before = made.fields = old->texts();
    } else {
        made.fields.bit = made.fields.elements = "0";
    }
    const bool same = !putCells(kItemColumns, table_, row, made.fields) && old != nullptr;
    if (same && name == made.before.name) return made;
    made.fields.name = name;
    const bool otherType =
        old == nullptr || made.fields.table != made.before.table || made.fields.type != made.before.type;
    complete(made.fields, made.before, otherType, table_.cell(row, kBit) != nullptr,
             table_.cell(row, kElements) != nullptr);
    if (!otherType) made.record = *old;
    made.after = made.fields;
    try {
        made.record.SetByForm(made.fields, place.key);
        if (!otherType) made.record.sDataType(old->sDataType());
        made.after = made.record.texts();
    } catch (const RuntimeError& error) {
        made.failure = error.what();
    }
    made.changed = differences(kItemColumns, made.before, made.after);
    return made;
}

// Finds the item that a row is about. Returns false if nothing is to be done.
bool ItemPlan::choose(const CsvRow& row, IntendedChange& change, Draft& draft) {
    const std::string& name = *table_.cell(row, kName);
    const std::string* wanted = table_.cell(row, kNewName);
    const bool renames = wanted != nullptr && !wanted->empty() && *wanted != name;
    Container& place = *draft.place;
    Container::Entry* entry = place.unused(name);
    Container::Entry* renamed = renames ? place.unused(*wanted) : nullptr;
    if (fits(row, place, renamed) && !fits(row, place, entry)) {
        renamed->line = row.line;
        return false;
    }
    if (entry != nullptr) {
        entry->line = row.line;
        draft.node = entry->node;
    } else if (const auto line = place.usedBy(name)) {
        change.refusal = secondRow(*line);
    } else if (renames) {
        change.refusal = nothingToRename(name);
    }
    return true;
}

void ItemPlan::add(const CsvRow& row) {
    const std::string& name = *table_.cell(row, kName);
    const std::string* wanted = table_.cell(row, kNewName);
    IntendedChange change{.line = row.line, .object = name};
    Draft draft;
    draft.place = containers_.find(table_.cell(row, kUnit), table_.cell(row, kBranch), change.refusal);
    if (draft.place != nullptr) {
        change.object = Key(draft.place->key, name).str();
        if (!choose(row, change, draft)) return;
    }
    if (!change.refused()) {
        Outcome made =
            outcome(row, *draft.place, draft.node, wanted == nullptr || wanted->empty() ? name : *wanted);
        if (draft.node != nullptr && made.changed == 0) return;
        change.adds = draft.node == nullptr;
        change.fields = fieldChanges(kItemColumns, made.changed, made.before, made.after);
        change.refusal = judge(made, draft);
        draft.record = std::move(made.record);
    }
    changes.push_back(std::move(change));
    drafts_.push_back(std::move(draft));
}

std::string ItemPlan::judge(const Outcome& made, const Draft& draft) {
    const TreeNode* container = draft.place->node;
    if (draft.node == nullptr && container != nullptr && container->tag() != NodeTag::Plc &&
        container->tag() != NodeTag::Branch)
        return "Only units and branches hold items";
    const ColumnSet set =
        draft.node == nullptr ? valueColumns(kItemColumns) : judged(kItemColumns, made.changed);
    const std::string reason =
        reasonAgainst(kItemColumns, set, made.fields, refusals(made.fields),
                      [&](std::size_t column) { return choices_.of(column, made.fields); });
    return reason.empty() ? made.failure : reason;
}

bool ItemPlan::isFree(const Key& key) const {
    if (configuration_.tree.find(key) == nullptr)
        return !configuration_.items.contains(key) && !configuration_.branches.contains(key);
    const auto leaver = leaving_.find(key);
    return leaver != leaving_.end() && !changes[leaver->second].refused();
}

// What an item keeps, nobody else can get; so one refusal can be the reason for another one.
void ItemPlan::claimNames() {
    for (std::size_t i = 0; i < drafts_.size(); ++i) {
        const Draft& draft = drafts_[i];
        if (!changes[i].refused() && draft.node != nullptr && draft.takesName())
            leaving_.emplace(draft.node->key(), i);
    }
    for (std::size_t i = 0; i < drafts_.size(); ++i) {
        if (!changes[i].refused() && drafts_[i].takesName()) claim(i);
    }
    settle();
    for (std::size_t i = 0; i < drafts_.size(); ++i) {
        if (!changes[i].refused() && changes[i].adds) changes[i].remark = newBranches(drafts_[i].place);
    }
}

void ItemPlan::claim(std::size_t draft) {
    if (!claimContainers(drafts_[draft].place)) return refuse(draft, kBranchTaken);
    const Key& key = drafts_[draft].record.sKey();
    if (!isFree(key)) return refuse(draft, kNameTaken);
    const auto [first, isFirst] = claims_.try_emplace(key, draft);
    const auto* row = std::get_if<std::size_t>(&first->second);
    if (!isFirst && row != nullptr)
        return refuse(draft, kNameTaken + " by line " + std::to_string(changes[*row].line));
    if (!isFirst) refuse(draft, kNameTaken);
}

// Names the branches that the first item in them brings along.
std::string ItemPlan::newBranches(Container* place) {
    std::string names;
    for (; place->node == nullptr && !std::exchange(place->told, true); place = place->above)
        names = names.empty() ? place->name : place->name + '.' + names;
    return names.empty() ? names : "new branch " + names;
}

bool ItemPlan::claimContainers(Container* place) {
    std::vector<Container*> missing;
    for (; place != nullptr && place->node == nullptr; place = place->above) missing.push_back(place);
    for (auto each = missing.rbegin(); each != missing.rend(); ++each) {
        if (!(*each)->planned)
            (*each)->refused = !isFree((*each)->key) || !claims_.try_emplace((*each)->key, *each).second;
        (*each)->planned = true;
        if ((*each)->refused) return false;
    }
    return true;
}

void ItemPlan::refuse(std::size_t draft, std::string_view reason) {
    if (changes[draft].refused()) return;
    changes[draft].refusal = reason;
    if (drafts_[draft].node != nullptr) staying_.push_back(drafts_[draft].node->key());
}

void ItemPlan::settle() {
    while (!staying_.empty()) {
        const auto wanted = claims_.find(staying_.back());
        staying_.pop_back();
        if (wanted == claims_.end()) continue;
        if (const auto* row = std::get_if<std::size_t>(&wanted->second)) {
            refuse(*row, kNameTaken);
            continue;
        }
        std::get<Container*>(wanted->second)->refused = true;
        for (std::size_t i = 0; i < drafts_.size(); ++i) {
            const bool inside = !changes[i].refused() && drafts_[i].takesName();
            if (inside && !claimContainers(drafts_[i].place)) refuse(i, kBranchTaken);
        }
    }
}

// First the new values under the old names, then the names together, so that items can exchange them, then
// what is new. Each item gets a record of its own: a copy made by dragging may share the old one.
void ItemPlan::apply(Configuration& configuration, const TableProgress& tell) const {
    Progress progress(tell, changes.size());
    std::vector<ItemRenaming> renamings;
    std::vector<const Draft*> withDot;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const Draft& draft = drafts_[i];
        if (changes[i].refused() || draft.node == nullptr) continue;
        progress.step();
        if (!draft.takesName()) {
            configuration.replaceItem(*draft.node, draft.record);
        } else if (draft.node->text().find('.') != std::string::npos) {
            withDot.push_back(&draft);
        } else {
            clsItem record = draft.record;
            record.sName(draft.node->text());
            record.sKey(draft.node->key());
            configuration.replaceItem(*draft.node, std::move(record));
            renamings.push_back({draft.node->key(), draft.record.sName()});
        }
    }
    configuration.renameItems(renamings);
    for (const ItemRenaming& renaming : renamings)
        if (renaming.failure) throw RuntimeError(*renaming.failure);
    // Renaming takes the last "." of a key for the end of its container.
    for (const Draft* draft : withDot) configuration.replaceItem(*draft->node, draft->record);
    addItems(configuration, progress);
}

void ItemPlan::addItems(Configuration& configuration, Progress& progress) const {
    std::unordered_map<const Container*, TreeNode*> made;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (changes[i].refused() || drafts_[i].node != nullptr) continue;
        progress.step();
        std::vector<const Container*> missing;
        const Container* place = drafts_[i].place;
        for (; place->node == nullptr && !made.contains(place); place = place->above)
            missing.push_back(place);
        TreeNode* container = place->node != nullptr ? place->node : made.at(place);
        for (auto each = missing.rbegin(); each != missing.rend(); ++each) {
            clsBranch branch;
            branch.sName((*each)->name);
            branch.sKey((*each)->key);
            container = made[*each] = &configuration.addBranch(std::move(branch), *container);
        }
        configuration.tree.ensureVisible(configuration.addItem(drafts_[i].record, *container));
    }
}

}  // namespace

std::unique_ptr<Plan> planItems(const Configuration& configuration, const Table& table,
                                const TableProgress& progress) {
    return std::make_unique<ItemPlan>(configuration, table, progress);
}

}  // namespace trevandix
