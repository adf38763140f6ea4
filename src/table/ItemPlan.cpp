#include <algorithm>
#include <unordered_map>
#include <variant>

#include "check/Check.h"
#include "model/ItemRenaming.h"
#include "table/Containers.h"
#include "table/ItemRows.h"
#include "table/Plan.h"

namespace trevandix {

namespace {

constexpr std::size_t kUnit = columnCalled("Unit", kItemColumns);
constexpr std::size_t kBranch = columnCalled("Branch", kItemColumns);
constexpr std::size_t kName = columnCalled("Name", kItemColumns);
constexpr std::size_t kNewName = columnCalled("New Name", kItemColumns);

constexpr std::string_view kBranchTaken = "The name of its new branch is taken";

/// What becomes of an item.
struct Draft {
    Container* container = nullptr;
    TreeNode* node = nullptr;  ///< nullptr for a new item
    clsItem record{};
    bool fitsBoth = false;  ///< the row fits the items of its old and of its new name

    bool takesName() const { return node == nullptr || node->key() != record.sKey(); }
};

class ItemPlan : public Plan {
public:
    ItemPlan(const Configuration& configuration, const Table& table, const TableProgress& tell)
        : configuration_(configuration),
          table_(table),
          rows_(configuration, table),
          containers_(configuration) {
        Progress progress(tell, table.rows.size());
        for (const CsvRow& row : table.rows) {
            progress.step();
            add(row);
        }
        claimNames();
    }

    void apply(Configuration& configuration, const TableProgress& tell) const override;
    void remarkFindings() override;

private:
    void addItems(Configuration& configuration, Progress& progress) const;
    void add(const CsvRow& row);
    bool choose(const CsvRow& row, IntendedChange& change, Draft& draft);
    bool fits(const CsvRow& row, const Container& container, const Container::Entry* entry) const {
        return entry != nullptr &&
               rows_.outcome(row, container.key, entry->node, std::string(entry->name)).changed == 0;
    }
    std::string reason(const ItemOutcome& made, const Draft& draft);

    void claimNames();
    void refuseDoubtful();
    void claim(std::size_t draft);
    static std::string newBranches(Container* container);
    bool claimContainers(Container* container);
    bool isFree(const Key& key) const;
    void refuse(std::size_t draft, std::string_view reason);
    void settle();

    const Configuration& configuration_;
    const Table& table_;
    ItemRows rows_;
    Containers containers_;
    std::vector<Draft> drafts_;                     // of the changes
    std::unordered_map<Key, std::size_t> leaving_;  // renamed items, by their old key
    std::unordered_map<Key, std::variant<std::size_t, Container*>> claims_;  // who gets a key
    std::vector<Key> staying_;  // of items that were to be renamed and are not
};

// Finds the item that a row is about. Returns false if nothing is to be done.
bool ItemPlan::choose(const CsvRow& row, IntendedChange& change, Draft& draft) {
    const std::string& name = *table_.cell(row, kName);
    const std::string* wanted = table_.cell(row, kNewName);
    const bool renames = wanted != nullptr && !wanted->empty() && *wanted != name;
    Container& container = *draft.container;
    Container::Entry* entry = container.unused(name);
    Container::Entry* renamed = renames ? container.unused(*wanted) : nullptr;
    if (fits(row, container, renamed)) {
        draft.fitsBoth = fits(row, container, entry);
        if (!draft.fitsBoth) {
            renamed->line = row.line;
            return false;
        }
    }
    if (entry != nullptr) {
        entry->line = row.line;
        draft.node = entry->node;
    } else if (const auto line = container.usedBy(name)) {
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
    draft.container = containers_.find(table_.cell(row, kUnit), table_.cell(row, kBranch), change.refusal);
    if (draft.container != nullptr) {
        change.object = Key(draft.container->key, name).str();
        if (!choose(row, change, draft)) return;
    }
    if (!change.refused()) {
        ItemOutcome made = rows_.outcome(row, draft.container->key, draft.node,
                                         wanted == nullptr || wanted->empty() ? name : *wanted);
        if (draft.node != nullptr && made.changed == 0) return;
        change.adds = draft.node == nullptr;
        change.fields = fieldChanges(kItemColumns, made.changed, made.before, made.after);
        change.refusal = reason(made, draft);
        draft.record = std::move(made.record);
    }
    changes.push_back(std::move(change));
    drafts_.push_back(std::move(draft));
}

std::string ItemPlan::reason(const ItemOutcome& made, const Draft& draft) {
    const TreeNode* above = draft.container->node;
    const bool holdsItems =
        above == nullptr || above->tag() == NodeTag::Plc || above->tag() == NodeTag::Branch;
    if (draft.node == nullptr && !holdsItems) return "Only units and branches hold items";
    return rows_.reason(made);
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
    refuseDoubtful();
    for (std::size_t i = 0; i < drafts_.size(); ++i) {
        if (!changes[i].refused() && drafts_[i].takesName()) claim(i);
    }
    settle();
    for (std::size_t i = 0; i < drafts_.size(); ++i) {
        if (!changes[i].refused() && changes[i].adds) changes[i].remark = newBranches(drafts_[i].container);
    }
}

void ItemPlan::refuseDoubtful() {
    std::vector<std::size_t> next(drafts_.size(), kNoRow);
    std::vector<bool> fitsBoth(drafts_.size());
    for (const auto& [key, row] : leaving_) {
        const auto leaver = leaving_.find(drafts_[row].record.sKey());
        if (leaver != leaving_.end()) next[row] = leaver->second;
        fitsBoth[row] = drafts_[row].fitsBoth;
    }
    for (const std::size_t row : doubtfulRings(next, fitsBoth)) refuse(row, kDoubtful);
}

void ItemPlan::claim(std::size_t draft) {
    if (!claimContainers(drafts_[draft].container)) return refuse(draft, kBranchTaken);
    const Key& key = drafts_[draft].record.sKey();
    if (!isFree(key)) return refuse(draft, kNameTaken);
    const auto [first, isFirst] = claims_.try_emplace(key, draft);
    const auto* row = std::get_if<std::size_t>(&first->second);
    if (!isFirst && row != nullptr)
        return refuse(draft, kNameTaken + " by line " + std::to_string(changes[*row].line));
    if (!isFirst) refuse(draft, kNameTaken);
}

// Names the branches that the first item in them brings along.
std::string ItemPlan::newBranches(Container* container) {
    std::string names;
    for (; container->node == nullptr && !std::exchange(container->told, true); container = container->above)
        names = names.empty() ? container->name : container->name + '.' + names;
    return names.empty() ? names : "new branch " + names;
}

bool ItemPlan::claimContainers(Container* container) {
    std::vector<Container*> missing;
    for (; container != nullptr && container->node == nullptr; container = container->above)
        missing.push_back(container);
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
            if (inside && !claimContainers(drafts_[i].container)) refuse(i, kBranchTaken);
        }
    }
}

void ItemPlan::remarkFindings() {
    std::unordered_map<const Container*, IntendedContainer> containers;
    const auto intended = [&](const Container* around) {
        const IntendedContainer* first = nullptr;
        IntendedContainer* below = nullptr;
        for (const Container* at = around; at != nullptr; at = at->node == nullptr ? at->above : nullptr) {
            const auto [entry, isNew] =
                containers.try_emplace(at, IntendedContainer{at->node, nullptr, at->key, at->name});
            (below == nullptr ? first : below->above) = &entry->second;
            below = &entry->second;
            if (!isNew) break;
        }
        return first;
    };
    std::vector<IntendedItem> items;
    std::vector<IntendedChange*> accepted;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const Draft& draft = drafts_[i];
        if (changes[i].refused()) continue;
        const bool adds = draft.node == nullptr;
        items.push_back({&draft.record, draft.node, adds ? intended(draft.container) : nullptr});
        accepted.push_back(&changes[i]);
    }
    const std::vector<std::string> findings = findingsAdded(configuration_, items);
    for (std::size_t i = 0; i < findings.size(); ++i) {
        std::string& remark = accepted[i]->remark;
        if (!findings[i].empty()) remark += (remark.empty() ? "" : "; ") + findings[i];
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
        const Container* container = drafts_[i].container;
        for (; container->node == nullptr && !made.contains(container); container = container->above)
            missing.push_back(container);
        TreeNode* node = container->node != nullptr ? container->node : made.at(container);
        for (auto each = missing.rbegin(); each != missing.rend(); ++each) {
            clsBranch branch;
            branch.sName((*each)->name);
            branch.sKey((*each)->key);
            node = made[*each] = &configuration.addBranch(std::move(branch), *node);
        }
        configuration.tree.ensureVisible(configuration.addItem(drafts_[i].record, *node));
    }
}

}  // namespace

std::unique_ptr<Plan> planItems(const Configuration& configuration, const Table& table,
                                const TableProgress& progress) {
    return std::make_unique<ItemPlan>(configuration, table, progress);
}

}  // namespace trevandix
