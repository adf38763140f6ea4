#include "table/ItemsEdit.h"

#include <algorithm>
#include <limits>
#include <map>
#include <unordered_set>

#include "model/ItemSpan.h"
#include "model/Numbers.h"
#include "platform/Text.h"
#include "table/ItemDrafts.h"
#include "table/ItemOutcomes.h"

namespace trevandix {

namespace {

/// Gives items one place after the other, as the dialog proposes them.
class Numbering {
public:
    explicit Numbering(ItemPlace start) : start_(start) {}

    void number(const TreeNode* unit, ItemFields& item) {
        ItemPlace& next = next_.try_emplace({unit, item.table}, start_).first->second;
        const bool bit = hasBitNumber(item.table, item.type);
        // The dialog leaves it to the user to go on behind the last bit.
        if (!bit && hasRegisters(item.table) && next.bit > 0) next = {next.address + 1, 0};
        item.address = std::to_string(next.address);
        if (bit) item.bit = std::to_string(next.bit);
        constexpr double kMost = std::numeric_limits<std::int16_t>::max();
        const double elements = std::clamp(leadingNumber(item.elements), 0.0, kMost);
        // No sum of what is refused anyway.
        if (next.address <= kLastAddress) next = advanced(next, item.table, item.type, toInt32(elements));
    }

private:
    ItemPlace start_;
    std::map<std::pair<const TreeNode*, std::string>, ItemPlace> next_;
};

class ItemsPlan : public ItemDrafts {
public:
    ItemsPlan(const Configuration& configuration, std::span<const TreeNode* const> items,
              const ItemsEdit& edit, const TableProgress& tell)
        : ItemDrafts(configuration), edit_(edit), outcomes_(configuration) {
        if (edit.start) numbering_.emplace(*edit.start);
        for (const auto& [text, value] : edit.values)
            if (text == &ItemFields::elements) entered_.elements = true;
        Progress progress(tell, items.size());
        for (const TreeNode* item : items) {
            progress.step();
            if (configuration.items.contains(item->key())) plan(configuration.tree.at(item->key()));
        }
        claimNames();
    }

private:
    void plan(TreeNode& node) {
        Container& container = containerOf(*node.parent());
        ItemOutcome made = outcomes_.begun(&node);
        for (const auto& [text, value] : edit_.values) made.fields.*text = value;
        if (edit_.move != 0)
            made.fields.address = std::to_string(std::int64_t{made.old->nAddress()} + edit_.move);
        if (numbering_) numbering_->number(unitAround(configuration_, &node), made.fields);
        if (const auto where = edit_.replacement.where)
            made.fields.*where = edit_.replacement.in(made.fields.*where);
        ItemOutcomes::end(made, container.key, entered_);
        if (made.changed == 0) return;
        IntendedChange change{.object = node.key().str()};
        change.fields = fieldChanges(kItemColumns, made.changed, made.before, made.after);
        change.refusal = outcomes_.reason(made);
        add(std::move(change), {&container, &node, std::move(made.record)});
    }

    Container& containerOf(TreeNode& node) {
        return containers_.try_emplace(&node, Container{.node = &node, .key = node.key()}).first->second;
    }

    const ItemsEdit& edit_;
    ItemOutcomes outcomes_;
    std::optional<Numbering> numbering_;
    Entered entered_;
    std::map<const TreeNode*, Container> containers_;
};

}  // namespace

std::string Replacement::in(std::string_view text) const {
    const auto same = [&](char32_t a, char32_t b) {
        return a == b || (ignoreCase && upperCased(a) == upperCased(b));
    };
    // Where the wanted text ends that begins here; the beginning where it does not.
    const auto endOfMatch = [&](std::size_t begin) {
        std::size_t at = begin;
        for (std::size_t wanted = 0; wanted < find.size();) {
            if (at >= text.size() || !same(nextCodePoint(text, at), nextCodePoint(find, wanted)))
                return begin;
        }
        return at;
    };
    std::string replaced;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        at = endOfMatch(begin);
        if (at > begin) {
            replaced += by;
            continue;
        }
        nextCodePoint(text, at);
        replaced += text.substr(begin, at - begin);
    }
    return replaced;
}

std::vector<const TreeNode*> itemsIn(std::span<const TreeNode* const> nodes) {
    std::vector<const TreeNode*> items;
    std::unordered_set<const TreeNode*> known;
    for (const TreeNode* top : nodes) {
        for (const TreeNode* node = top; node != nullptr; node = nextBelow(*node, *top))
            if (node->tag() == NodeTag::Item && known.insert(node).second) items.push_back(node);
    }
    return items;
}

ChangeSet changeItems(const Configuration& configuration, std::span<const TreeNode* const> items,
                      const ItemsEdit& edit, const TableProgress& progress) {
    ChangeSet changes(configuration, NodeTag::Item,
                      std::make_unique<ItemsPlan>(configuration, items, edit, progress));
    const std::size_t count = changes.accepted();
    changes.setStepName("Change " + counted(count, "item", "items"));
    return changes;
}

}  // namespace trevandix
