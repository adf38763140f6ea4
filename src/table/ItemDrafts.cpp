#include "table/ItemDrafts.h"

#include <utility>

#include "model/ItemRenaming.h"

namespace trevandix {

namespace {

constexpr std::string_view kBranchTaken = "The name of its new branch is taken";

std::string taker(const IntendedChange& change) {
    return change.line == 0 ? change.object : "line " + std::to_string(change.line);
}

}  // namespace

void ItemDrafts::add(IntendedChange change, Draft draft) {
    changes.push_back(std::move(change));
    drafts_.push_back(std::move(draft));
}

bool ItemDrafts::isFree(const Key& key) const {
    if (configuration_.tree.find(key) == nullptr)
        return !configuration_.items.contains(key) && !configuration_.branches.contains(key);
    const auto leaver = leaving_.find(key);
    return leaver != leaving_.end() && !changes[leaver->second].refused();
}

// What an item keeps, nobody else can get; so one refusal can be the reason for another one.
void ItemDrafts::claimNames() {
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

void ItemDrafts::refuseDoubtful() {
    std::vector<std::size_t> next(drafts_.size(), kNoRow);
    std::vector<bool> fitsBoth(drafts_.size());
    for (const auto& [key, row] : leaving_) {
        const auto leaver = leaving_.find(drafts_[row].record.sKey());
        if (leaver != leaving_.end()) next[row] = leaver->second;
        fitsBoth[row] = drafts_[row].fitsBoth;
    }
    for (const std::size_t row : doubtfulRings(next, fitsBoth)) {
        refuse(row, kDoubtful);
        doubtful = true;
    }
}

void ItemDrafts::claim(std::size_t draft) {
    if (!claimContainers(drafts_[draft].container)) return refuse(draft, kBranchTaken);
    const Key& key = drafts_[draft].record.sKey();
    if (!isFree(key)) return refuse(draft, kNameTaken);
    const auto [first, isFirst] = claims_.try_emplace(key, draft);
    const auto* row = std::get_if<std::size_t>(&first->second);
    if (!isFirst && row != nullptr) return refuse(draft, kNameTaken + " by " + taker(changes[*row]));
    if (!isFirst) refuse(draft, kNameTaken);
}

// Names the branches that the first item in them brings along.
std::string ItemDrafts::newBranches(Container* container) {
    std::string names;
    for (; container->node == nullptr && !std::exchange(container->told, true); container = container->above)
        names = names.empty() ? container->name : container->name + '.' + names;
    return names.empty() ? names : "new branch " + names;
}

bool ItemDrafts::claimContainers(Container* container) {
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

void ItemDrafts::refuse(std::size_t draft, std::string_view reason) {
    if (changes[draft].refused()) return;
    changes[draft].refusal = reason;
    if (drafts_[draft].node != nullptr) staying_.push_back(drafts_[draft].node->key());
}

void ItemDrafts::settle() {
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

void ItemDrafts::remarkFindings(Pulse& pulse) {
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
    const std::vector<std::string> findings = findingsAdded(configuration_, items, pulse);
    for (std::size_t i = 0; i < findings.size(); ++i) {
        std::string& remark = accepted[i]->remark;
        if (!findings[i].empty()) remark += (remark.empty() ? "" : "; ") + findings[i];
    }
}

// First the new values under the old names, then the names together, so that items can exchange them, then
// what is new. Each item gets a record of its own: a copy made by dragging may share the old one.
void ItemDrafts::apply(Configuration& configuration, const TableProgress& tell) const {
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

void ItemDrafts::addItems(Configuration& configuration, Progress& progress) const {
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

}  // namespace trevandix
