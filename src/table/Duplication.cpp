#include "table/Duplication.h"

#include <array>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <variant>

#include "check/BranchNames.h"
#include "check/Places.h"
#include "model/Numbers.h"
#include "platform/Text.h"
#include "table/Plan.h"

namespace trevandix {

namespace {

constexpr std::size_t kItemAddress = columnCalled("Address", kItemColumns);
constexpr std::size_t kUnitName = columnCalled("Name", kUnitColumns);
constexpr std::size_t kUnitIdentifier = columnCalled("Identifier", kUnitColumns);

/// Says where copied items lie on others.
class Neighbourhood {
public:
    Neighbourhood(const Configuration& configuration, const TreeNode& unit)
        : survey_(configuration, pulse_), places_(survey_, unit) {
        for (const ItemFacts& item : survey_.items) facts_.emplace(survey_.objects[item.object].node, &item);
    }

    std::string remark(const TreeNode& original, std::int32_t address) const {
        const auto known = facts_.find(&original);
        if (known == facts_.end() || !known->second->type->known()) return {};
        ItemFacts copy = *known->second;
        copy.address = address;
        const ItemFacts* other = places_.in(copy.table(), copy.span());
        if (other == nullptr) return {};
        return "lies on " + shownKey(places_.nodeOf(*other).key()) + " (" + shownPlace(*other) + ')';
    }

private:
    Pulse pulse_;
    Survey survey_;
    Places places_;
    std::unordered_map<const TreeNode*, const ItemFacts*> facts_;
};

class DuplicationPlan : public Plan {
public:
    DuplicationPlan(const Configuration& configuration, TreeNode& node, const Duplication& wanted)
        : configuration_(configuration), source_(node), wanted_(wanted) {
        for (const auto& [key, unit] : configuration.units) units_.push_back(unit);
        const TreeNode* unit = unitAround(configuration, &node);
        if (node.tag() == NodeTag::Branch && unit != nullptr) neighbours_.emplace(configuration, *unit);
        copied_.resize(wanted.copies);  // they stay where they are: units are compared with them
        for (std::size_t copy = 0; copy < wanted.copies; ++copy) {
            if (planTop(copy)) planBelow(copy);
        }
        neighbours_.reset();
    }

    void apply(Configuration& configuration, const TableProgress& tell) const override {
        Progress progress(tell, changes.size());
        std::vector<TreeNode*> made(changes.size());
        for (std::size_t i = 0; i < changes.size(); ++i) {
            progress.step();
            const Draft& draft = drafts_[i];
            if (changes[i].refused()) continue;
            TreeNode& above = draft.above == kTop ? *source_.parent() : *made[draft.above];
            if (const auto* unit = std::get_if<clsPLC>(&draft.record))
                made[i] = &configuration.addUnit(*unit);
            else if (const auto* branch = std::get_if<clsBranch>(&draft.record))
                made[i] = &configuration.addBranch(*branch, above);
            else
                made[i] = &configuration.addItem(std::get<clsItem>(draft.record), above);
            configuration.tree.ensureVisible(*made[i]);
        }
    }

private:
    static constexpr std::size_t kTop = static_cast<std::size_t>(-1);
    struct Draft {
        std::variant<clsPLC, clsBranch, clsItem> record;
        std::size_t above = kTop;  // the change that adds the container
    };

    void add(IntendedChange change, Draft draft) {
        change.adds = true;
        changes.push_back(std::move(change));
        drafts_.push_back(std::move(draft));
    }

    // False where the copy is refused.
    bool planTop(std::size_t copy) {
        const std::string name = nameBehind(wanted_.name, copy);
        source_.tag() == NodeTag::Plc ? planUnit(copy, name) : planBranch(name);
        IntendedChange& change = changes.back();
        change.remark = "copy of " + source_.key().str();
        return !change.refused();
    }

    void planUnit(std::size_t copy, const std::string& name) {
        const std::string& kind = configuration_.state.interfaceKind;
        clsPLC& record = copied_[copy];
        record = *configuration_.units.at(source_.key());
        UnitFields fields = record.texts(kind);
        fields.name = name;
        const auto number = wholeNumber(wanted_.identifier);
        fields.identifier = number && copy > 0
                                ? std::to_string(toInt32(*number) + static_cast<std::int64_t>(copy))
                                : wanted_.identifier;
        constexpr ColumnSet kJudged = 1U << kUnitName | 1U << kUnitIdentifier;
        IntendedChange change{.object = name};
        change.refusal =
            reasonAgainst(kUnitColumns, kJudged, fields, refusals(fields, kind, units_, nullptr), noChoices);
        if (!change.refused() && !claim(name)) change.refusal = kNameTaken;
        if (!change.refused()) {
            record.SetByForm(fields, kind);
            units_.push_back(&record);
        }
        change.fields = fieldChanges(kUnitColumns, kJudged, UnitFields{}, fields);
        add(std::move(change), {record});
    }

    void planBranch(const std::string& name) {
        const Key key = makeKey(name, source_, true);
        IntendedChange change{.object = key.str()};
        if (const std::string fault = branchFault(name) + tagFault(name); !fault.empty())
            change.refusal = "New " + fault;
        else if (!claim(key))
            change.refusal = kNameTaken;
        else if (const TreeNode* other = sameInFile(name))
            change.refusal =
                kNameTaken + " by " + quoted(other->text()) + ", as files hold branch names in capitals";
        add(std::move(change), {branch(name, key)});
    }

    // What stands beside the source and would have the same name as a branch in a file.
    const TreeNode* sameInFile(const std::string& name) const {
        const std::string capitals = upperCased(name);
        const TreeNode* node = source_.parent()->firstChild();
        const auto same = [&] {
            return node->text() == capitals ||
                   (node->tag() == NodeTag::Branch && upperCased(node->text()) == capitals);
        };
        while (node != nullptr && !same()) node = node->nextSibling();
        return node;
    }

    static clsBranch branch(const std::string& name, const Key& key) {
        clsBranch record;
        record.sName(name);
        record.sKey(key);
        return record;
    }

    // Branches and items, as they would be dragged; what stands below anything else is left out.
    void planBelow(std::size_t copy) {
        std::unordered_map<const TreeNode*, std::size_t> containers{{&source_, changes.size() - 1}};
        for (const TreeNode* node = nextBelow(source_, source_); node != nullptr;
             node = nextBelow(*node, source_)) {
            const auto above = containers.find(node->parent());
            if (above == containers.end()) continue;
            const Key key(Key(changes[above->second].object), node->text());
            IntendedChange change{.object = key.str()};
            if (changes[above->second].refused())
                change.refusal = "The branch around it is refused";
            else if (!claim(key))
                change.refusal = kNameTaken;
            if (node->tag() == NodeTag::Branch) {
                containers.emplace(node, changes.size());
                add(std::move(change), {branch(node->text(), key), above->second});
            } else if (node->tag() == NodeTag::Item && configuration_.items.contains(node->key())) {
                planItem(*node, key, copy, std::move(change), above->second);
            }
        }
    }

    void planItem(const TreeNode& node, const Key& key, std::size_t copy, IntendedChange change,
                  std::size_t above) {
        clsItem record = *configuration_.items.at(node.key());
        ItemFields fields = record.texts();
        const std::int64_t moved = record.nAddress() + wanted_.move * (static_cast<std::int64_t>(copy) + 1);
        fields.address = std::to_string(moved);
        constexpr ColumnSet kJudged = 1U << kItemAddress;
        if (!change.refused() && wanted_.move != 0)
            change.refusal = reasonAgainst(kItemColumns, kJudged, fields, refusals(fields), noChoices);
        if (!change.refused()) {
            record.sName(node.text());
            record.sKey(key);
            record.nAddress(static_cast<std::int32_t>(moved));
            if (neighbours_) change.remark = neighbours_->remark(node, record.nAddress());
        }
        change.fields = fieldChanges(kItemColumns, kJudged, ItemFields{}, fields);
        add(std::move(change), {std::move(record), above});
    }

    bool claim(const Key& key) {
        const bool isFree = configuration_.tree.find(key) == nullptr && !configuration_.units.contains(key) &&
                            !configuration_.branches.contains(key) && !configuration_.items.contains(key);
        return isFree && claimed_.insert(key).second;
    }

    const Configuration& configuration_;
    TreeNode& source_;
    const Duplication wanted_;
    std::vector<clsPLC> copied_;
    std::vector<const clsPLC*> units_;  // those that there are and accepted copies
    std::optional<Neighbourhood> neighbours_;
    std::unordered_set<Key> claimed_;
    std::vector<Draft> drafts_;  // of the changes
};

}  // namespace

std::string nameBehind(std::string_view name, std::size_t steps) {
    constexpr std::size_t kMostDigits = 9;
    if (steps == 0) return std::string(name);
    const std::size_t end = name.find_last_not_of("0123456789");
    const std::string_view stem = name.substr(0, end == std::string_view::npos ? 0 : end + 1);
    const std::string_view digits = name.substr(stem.size());
    if (digits.size() > kMostDigits || digits.empty()) return std::string(name) + std::to_string(steps + 1);
    const auto number = static_cast<std::size_t>(leadingNumber(digits)) + steps;
    const std::string text = std::to_string(number);
    return std::string(stem) + std::string(digits.size() - std::min(digits.size(), text.size()), '0') + text;
}

ChangeSet duplicate(const Configuration& configuration, TreeNode& node, const Duplication& wanted) {
    ChangeSet changes(configuration, NodeTag::Item,
                      std::make_unique<DuplicationPlan>(configuration, node, wanted));
    const std::string kind = node.tag() == NodeTag::Plc ? "unit " : "branch ";
    changes.setStepName("Duplicate " + kind + node.text());
    return changes;
}

}  // namespace trevandix
