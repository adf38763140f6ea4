#include "table/ItemDrafts.h"
#include "table/ItemOutcomes.h"

namespace trevandix {

namespace {

constexpr std::size_t kUnit = columnCalled("Unit", kItemColumns);
constexpr std::size_t kBranch = columnCalled("Branch", kItemColumns);
constexpr std::size_t kName = columnCalled("Name", kItemColumns);
constexpr std::size_t kNewName = columnCalled("New Name", kItemColumns);
constexpr std::size_t kBit = columnCalled("Bit", kItemColumns);
constexpr std::size_t kElements = columnCalled("Elements", kItemColumns);

class ItemPlan : public ItemDrafts {
public:
    ItemPlan(const Configuration& configuration, const Table& table, const TableProgress& tell,
             const Renamings& renamings)
        : ItemDrafts(configuration),
          table_(table),
          renamings_(renamings),
          outcomes_(configuration),
          containers_(configuration) {
        Progress progress(tell, table.rows.size());
        for (const CsvRow& row : table.rows) {
            progress.step();
            add(row);
        }
        claimNames();
    }

private:
    void add(const CsvRow& row);
    ItemOutcome outcome(const CsvRow& row, const Key& container, const TreeNode* node,
                        const std::string& name) const;
    bool choose(const CsvRow& row, IntendedChange& change, Draft& draft);
    bool fits(const CsvRow& row, const Container& container, const Container::Entry* entry) const {
        return entry != nullptr &&
               outcome(row, container.key, entry->node, std::string(entry->name)).changed == 0;
    }
    std::string reason(const ItemOutcome& made, const Draft& draft);

    const Table& table_;
    const Renamings& renamings_;
    ItemOutcomes outcomes_;
    Containers containers_;
};

ItemOutcome ItemPlan::outcome(const CsvRow& row, const Key& container, const TreeNode* node,
                              const std::string& name) const {
    ItemOutcome made = outcomes_.begun(node);
    const bool differs = putCells(kItemColumns, table_, row, made.fields);
    if (node != nullptr && !differs && name == made.before.name) return made;
    made.fields.name = name;
    const auto given = [&](std::size_t column) { return table_.cell(row, column) != nullptr; };
    ItemOutcomes::end(made, container, {.bit = given(kBit), .elements = given(kElements)});
    return made;
}

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
        if (!draft.fitsBoth || renamings_.isDone(table_, row)) {
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
        ItemOutcome made = outcome(row, draft.container->key, draft.node,
                                   wanted == nullptr || wanted->empty() ? name : *wanted);
        if (draft.node != nullptr && made.changed == 0) return;
        change.adds = draft.node == nullptr;
        change.fields = fieldChanges(kItemColumns, made.changed, made.before, made.after);
        change.refusal = reason(made, draft);
        draft.record = std::move(made.record);
    }
    ItemDrafts::add(std::move(change), std::move(draft));
}

std::string ItemPlan::reason(const ItemOutcome& made, const Draft& draft) {
    const TreeNode* above = draft.container->node;
    const bool holdsItems =
        above == nullptr || above->tag() == NodeTag::Plc || above->tag() == NodeTag::Branch;
    if (draft.node == nullptr && !holdsItems) return "Only units and branches hold items";
    return outcomes_.reason(made);
}

}  // namespace

std::unique_ptr<Plan> planItems(const Configuration& configuration, const Table& table,
                                const TableProgress& progress, const Renamings& renamings) {
    return std::make_unique<ItemPlan>(configuration, table, progress, renamings);
}

}  // namespace trevandix
