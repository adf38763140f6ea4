#include <algorithm>
#include <map>
#include <unordered_set>

#include "model/UnitChoices.h"
#include "table/Plan.h"

namespace trevandix {

namespace {

constexpr std::size_t kName = columnCalled("Name", kUnitColumns);
constexpr std::size_t kNewName = columnCalled("New Name", kUnitColumns);

using Texts = std::vector<std::string>;

template <std::size_t size>
Texts listOf(const std::array<std::string_view, size>& entries) {
    return {entries.begin(), entries.end()};
}

/// The dialog's lists into which nothing can be typed.
const Texts* choices(std::size_t column) {
    static const Texts rates = listOf(kBaudRates), parities = listOf(kParities),
                       flows = listOf(kFlowControls);
    const auto text = kUnitColumns.at(column).text;
    if (text == &UnitFields::baud) return &rates;
    if (text == &UnitFields::parity) return &parities;
    return text == &UnitFields::flowControl ? &flows : nullptr;
}

/// What becomes of a unit.
struct Draft {
    std::shared_ptr<const clsPLC> old{};  ///< nullptr for a new unit
    UnitFields fields{};
    clsPLC record{};
    ColumnSet changed = 0;
    bool fitsBoth = false;  ///< the row fits the units of its old and of its new name

    bool renames() const { return old != nullptr && old->getName() != record.getName(); }
};

class UnitPlan : public Plan {
public:
    UnitPlan(const Configuration& configuration, const Table& table, const Renamings& renamings)
        : configuration_(configuration), kind_(configuration.state.interfaceKind) {
        for (const CsvRow& row : table.rows) add(table, row, renamings);
        refuseDoubtful();
        // A refusal can be the reason for another one.
        while (judgeAll()) {
        }
    }

    void apply(Configuration& configuration, const TableProgress& tell) const override {
        Progress progress(tell, changes.size());
        std::vector<const Draft*> renaming;
        for (std::size_t i = 0; i < changes.size(); ++i) {
            if (changes[i].refused() || changes[i].adds) continue;
            if (drafts_[i].renames()) {
                renaming.push_back(&drafts_[i]);
                continue;
            }
            progress.step();
            configuration.replaceUnit(nodeOf(*drafts_[i].old), drafts_[i].record);
        }
        rename(configuration, std::move(renaming));
        for (std::size_t i = 0; i < changes.size(); ++i) {
            if (changes[i].refused() || !changes[i].adds) continue;
            progress.step();
            configuration.tree.ensureVisible(configuration.addUnit(drafts_[i].record));
        }
    }

    void remarkFindings(Pulse& pulse) override {
        std::vector<IntendedUnit> units;
        std::vector<IntendedChange*> changed;
        for (std::size_t i = 0; i < changes.size(); ++i) {
            if (changes[i].refused() || changes[i].adds) continue;
            units.push_back({drafts_[i].old->sKey(), &drafts_[i].record});
            changed.push_back(&changes[i]);
        }
        const std::vector<std::string> findings = findingsAdded(configuration_, units, pulse);
        for (std::size_t i = 0; i < findings.size(); ++i) changed[i]->remark = findings[i];
    }

private:
    TreeNode& nodeOf(const clsPLC& unit) const { return configuration_.tree.at(unit.sKey()); }

    /// A unit that a file would hold.
    std::shared_ptr<const clsPLC> unitCalled(const std::string& name) const {
        const TreeNode* node = configuration_.tree.find(name);
        if (node == nullptr || node->tag() != NodeTag::Plc || node->parent() != configuration_.tree.root())
            return nullptr;
        return configuration_.units.find(name);
    }

    Draft drafted(const Table& table, const CsvRow& row, std::shared_ptr<const clsPLC> old,
                  const std::string& name) const {
        Draft draft{.old = std::move(old)};
        draft.fields = draft.old != nullptr ? draft.old->texts(kind_) : clsPLC::proposed();
        putCells(kUnitColumns, table, row, draft.fields);
        draft.fields.name = name;
        return draft;
    }

    // Fills in the record and what changes. Returns the failure of a number that does not fit.
    std::string convert(Draft& draft) const {
        const UnitFields before = draft.old != nullptr ? draft.old->texts(kind_) : UnitFields{};
        std::string failure;
        UnitFields after = draft.fields;
        try {
            draft.record.SetByForm(draft.fields, kind_);
            after = draft.record.texts(kind_);
        } catch (const RuntimeError& error) {
            failure = error.what();
        }
        draft.changed = differences(kUnitColumns, before, after);
        return failure;
    }

    bool fits(const Table& table, const CsvRow& row, const std::shared_ptr<const clsPLC>& unit) const {
        Draft draft = drafted(table, row, unit, unit->getName());
        return convert(draft).empty() && draft.changed == 0;
    }

    void add(const Table& table, const CsvRow& row, const Renamings& renamings) {
        const std::string& name = *table.cell(row, kName);
        const std::string* wanted = table.cell(row, kNewName);
        const bool renames = wanted != nullptr && !wanted->empty() && *wanted != name;
        std::shared_ptr<const clsPLC> old = unitCalled(name);
        const auto renamed = renames ? unitCalled(*wanted) : nullptr;
        const bool fitsNew = renamed != nullptr && fits(table, row, renamed);
        const bool fitsBoth = fitsNew && old != nullptr && fits(table, row, old);
        const bool done = fitsNew && (!fitsBoth || renamings.isDone(table, row));
        if (done) old = renamed;
        IntendedChange change{.line = row.line, .object = name, .adds = old == nullptr && !renames};
        const auto [first, isFirst] = lines_.try_emplace(old != nullptr ? old->getName() : name, row.line);
        if (!isFirst)
            change.refusal = secondRow(first->second);
        else if (old == nullptr && renames)
            change.refusal = nothingToRename(name);
        if (done && !change.refused()) return;
        Draft draft = drafted(table, row, old, renames ? *wanted : name);
        draft.fitsBoth = fitsBoth;
        const std::string failure = convert(draft);
        if (draft.changed == 0 && !change.refused()) return;
        const UnitFields before = old != nullptr ? old->texts(kind_) : UnitFields{};
        const UnitFields after = failure.empty() ? draft.record.texts(kind_) : draft.fields;
        change.fields = fieldChanges(kUnitColumns, draft.changed, before, after);
        if (!change.refused()) change.refusal = reason(draft, {});
        if (!change.refused()) change.refusal = failure;
        changes.push_back(std::move(change));
        drafts_.push_back(std::move(draft));
    }

    void refuseDoubtful() {
        std::map<std::string, std::size_t> leaving;  // rows by the old name
        for (std::size_t i = 0; i < drafts_.size(); ++i)
            if (drafts_[i].renames() && !changes[i].refused()) leaving[drafts_[i].old->getName()] = i;
        std::vector<std::size_t> next(drafts_.size(), kNoRow);
        std::vector<bool> fitsBoth(drafts_.size());
        for (const auto& [name, row] : leaving) {
            const auto leaver = leaving.find(drafts_[row].record.getName());
            if (leaver != leaving.end()) next[row] = leaver->second;
            fitsBoth[row] = drafts_[row].fitsBoth;
        }
        for (const std::size_t row : doubtfulRings(next, fitsBoth)) {
            changes[row].refusal = kDoubtful;
            doubtful = true;
        }
    }

    std::string reason(const Draft& draft, OtherUnits others) const {
        const ColumnSet set = draft.old == nullptr ? ownColumns() : judged(kUnitColumns, draft.changed);
        return reasonAgainst(kUnitColumns, set, draft.fields, refusals(draft.fields, kind_, others, nullptr),
                             choices);
    }

    // Those that units of the interface kind have.
    ColumnSet ownColumns() const {
        ColumnSet set = 0;
        for (std::size_t i = 0; i < kUnitColumns.size(); ++i)
            if (clsPLC::hasField(kUnitColumns[i].text, kind_)) set |= 1U << i;
        return set;
    }

    /// The units as they will be, those first whose serial line keeps its settings: they decide about the
    /// others.
    std::vector<const clsPLC*> outcome() const {
        std::unordered_set<const clsPLC*> replaced;
        std::vector<const clsPLC*> units, moved;
        for (std::size_t i = 0; i < changes.size(); ++i) {
            if (changes[i].refused()) continue;
            if (drafts_[i].old != nullptr) replaced.insert(drafts_[i].old.get());
            const ColumnSet lead = judged(kUnitColumns, 1U << columnCalled("Port", kUnitColumns));
            const bool moves = drafts_[i].old == nullptr || (drafts_[i].changed & lead) != 0;
            (moves ? moved : units).push_back(&drafts_[i].record);
        }
        for (const auto& [key, unit] : configuration_.units)
            if (!replaced.contains(unit)) units.push_back(unit);
        units.insert(units.end(), moved.begin(), moved.end());
        return units;
    }

    // Judges each accepted change by what the others will be, the last one first, so that the first row of
    // two that exclude each other is accepted. Returns whether one was refused.
    bool judgeAll() {
        bool anyRefused = false;
        std::vector<const clsPLC*> units = outcome();
        for (std::size_t i = changes.size(); i-- > 0;) {
            if (changes[i].refused()) continue;
            std::vector<const clsPLC*> others = units;
            std::erase(others, &drafts_[i].record);
            const bool named = contains(drafts_[i].changed, kName);
            changes[i].refusal = named && (isTaken(drafts_[i].record.getName(), others) || clashes(i))
                                     ? kNameTaken
                                     : reason(drafts_[i], others);
            if (!changes[i].refused()) continue;
            anyRefused = true;
            units = outcome();
        }
        return anyRefused;
    }

    bool isTaken(const std::string& name, OtherUnits others) const {
        const auto isCalled = [&](const clsPLC* unit) { return unit->getName() == name; };
        if (std::ranges::any_of(others, isCalled)) return true;
        return configuration_.tree.find(name) != nullptr && unitCalled(name) == nullptr;
    }

    // Whether an object of the unit would get the key of one in another unit, which only a "." in a unit's
    // name makes possible.
    bool clashes(std::size_t draft) const {
        const std::string& name = drafts_[draft].record.getName();
        std::vector<std::pair<std::string, std::string>> near;  // old and new name of units with such keys
        const auto look = [&](const std::string& from, const std::string& to) {
            if (to.starts_with(name + '.') || name.starts_with(to + '.')) near.emplace_back(from, to);
        };
        std::unordered_set<const clsPLC*> leaving{drafts_[draft].old.get()};
        for (std::size_t i = 0; i < drafts_.size(); ++i) {
            const Draft& other = drafts_[i];
            if (i == draft || changes[i].refused() || !contains(other.changed, kName)) continue;
            leaving.insert(other.old.get());
            look(other.old != nullptr ? other.old->getName() : std::string(), other.record.getName());
        }
        for (const auto& [key, unit] : configuration_.units)
            if (!leaving.contains(unit)) look(unit->getName(), unit->getName());
        if (near.empty()) return false;
        const auto isThere = [&](const std::string& key) {
            return std::ranges::any_of(near, [&](const auto& unit) {
                const auto& [from, to] = unit;
                if (key == to) return true;
                const TreeNode* top = configuration_.tree.find(from);
                if (top == nullptr || !key.starts_with(to + '.')) return false;
                const TreeNode* found = configuration_.tree.find(from + key.substr(to.size()));
                return found != nullptr && liesIn(found, *top);
            });
        };
        if (isThere(name)) return true;
        if (drafts_[draft].old == nullptr) return false;
        const TreeNode& top = nodeOf(*drafts_[draft].old);
        const std::size_t prefix = top.key().view().size();
        for (const TreeNode* node = nextBelow(top, top); node != nullptr; node = nextBelow(*node, top))
            if (isThere(name + std::string(node->key().view().substr(prefix)))) return true;
        return false;
    }

    // Units that exchange their names take turns by a name that nobody has. Where a "." is in a name, all of
    // them do: the objects in one unit can be in the way of another one.
    static void rename(Configuration& configuration, std::vector<const Draft*> renaming) {
        std::map<const Draft*, std::string> keys;  // under which each unit stands now
        const auto wait = [&](const Draft* draft) {
            clsPLC waiting = *draft->old;
            std::string& name = keys[draft];
            TreeNode& node = configuration.tree.at(name);
            while (configuration.tree.find(name) != nullptr || configuration.units.contains(name))
                name += '~';
            waiting.setName(name);
            waiting.sKey(name);
            configuration.replaceUnit(node, std::move(waiting));
        };
        for (const Draft* draft : renaming) keys[draft] = draft->old->getName();
        const bool dotted = std::ranges::any_of(configuration.units, [](const auto& entry) {
            return entry.first.view().find('.') != std::string_view::npos;
        });
        if (dotted && renaming.size() > 1) std::ranges::for_each(renaming, wait);
        while (!renaming.empty()) {
            const auto isFree = [&](const Draft* draft) {
                return configuration.tree.find(draft->record.sKey()) == nullptr;
            };
            const auto next = std::ranges::find_if(renaming, isFree);
            if (next == renaming.end()) {
                wait(renaming.front());
                continue;
            }
            configuration.replaceUnit(configuration.tree.at(keys[*next]), (*next)->record);
            renaming.erase(next);
        }
    }

    const Configuration& configuration_;
    const std::string& kind_;
    std::map<std::string, std::size_t> lines_;  // of the rows by unit
    std::vector<Draft> drafts_;                 // of the changes
};

}  // namespace

std::unique_ptr<Plan> planUnits(const Configuration& configuration, const Table& table, const TableProgress&,
                                const Renamings& renamings) {
    return std::make_unique<UnitPlan>(configuration, table, renamings);
}

}  // namespace trevandix
