#include "model/ItemRenaming.h"

#include <unordered_map>
#include <unordered_set>

namespace trevandix {

namespace {

/// Finds out which renamings can be done together.
class Plan {
public:
    Plan(const Configuration& configuration, std::vector<ItemRenaming>& renamings)
        : configuration_(configuration), renamings_(renamings) {
        for (ItemRenaming& renaming : renamings_) leave(renaming);
        for (ItemRenaming& renaming : renamings_) {
            if (!renaming.failure) claim(renaming);
        }
        // Whoever stays keeps its key from the one that wanted it, which stays as well, and so on.
        while (!staying_.empty()) {
            const auto wanted = claims_.find(staying_.back()->key);
            staying_.pop_back();
            if (wanted != claims_.end() && !wanted->second->failure) {
                stay(*wanted->second, ErrorNumber::KeyInCollection);
            }
        }
    }

private:
    void leave(ItemRenaming& renaming) {
        if (configuration_.tree.find(renaming.key) == nullptr) {
            renaming.failure = ErrorNumber::ElementNotFound;
        } else if (!configuration_.items.contains(renaming.key) || !leaving_.insert(renaming.key).second) {
            renaming.failure = ErrorNumber::InvalidCall;
        }
    }

    void claim(ItemRenaming& renaming) {
        renaming.newKey = Key(Key(renaming.key.parent()), renaming.name);
        if (!claims_.try_emplace(renaming.newKey, &renaming).second) {
            stay(renaming, ErrorNumber::KeyInCollection);
        } else if (leaving_.contains(renaming.newKey)) {
            return;
        } else if (configuration_.items.contains(renaming.newKey)) {
            stay(renaming, ErrorNumber::KeyInCollection);
        } else if (configuration_.tree.find(renaming.newKey) != nullptr) {
            stay(renaming, ErrorNumber::KeyNotUnique);
        }
    }

    void stay(ItemRenaming& renaming, ErrorNumber reason) {
        renaming.failure = reason;
        staying_.push_back(&renaming);
    }

    const Configuration& configuration_;
    std::vector<ItemRenaming>& renamings_;
    std::unordered_set<Key> leaving_;
    std::unordered_map<Key, ItemRenaming*> claims_;
    std::vector<ItemRenaming*> staying_;
};

struct Taken {
    const ItemRenaming* renaming;
    std::shared_ptr<clsItem> record;
    TreeNode* node;
};

}  // namespace

void renameItems(Configuration& configuration, std::vector<ItemRenaming>& renamings) {
    const Plan plan(configuration, renamings);
    StructureTree& tree = configuration.tree;
    std::vector<Taken> taken;
    taken.reserve(renamings.size());
    for (const ItemRenaming& renaming : renamings) {
        if (renaming.failure) continue;
        taken.push_back({&renaming, configuration.items.at(renaming.key), &tree.at(renaming.key)});
        configuration.items.remove(renaming.key);
        tree.setKey(*taken.back().node, {});
    }
    for (const auto& [renaming, record, node] : taken) {
        record->sKey(renaming->newKey);
        if (record->sName() != renaming->name) configuration.touch();
        record->sName(renaming->name);
        configuration.items.add(record, renaming->newKey);
        tree.setKey(*node, renaming->newKey);
        tree.setText(*node, renaming->name);
    }
}

}  // namespace trevandix
