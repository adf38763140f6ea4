#include "model/ItemRenaming.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "model/Content.h"

namespace trevandix {

namespace {

/// Finds out which renamings can be done together.
class Plan {
public:
    Plan(const Content& content, std::vector<ItemRenaming>& renamings)
        : tree_(content.tree()), items_(content.records<clsItem>()), renamings_(renamings) {
        for (ItemRenaming& renaming : renamings_) leave(renaming);
        for (ItemRenaming& renaming : renamings_) {
            if (!renaming.failure) claim(renaming);
        }
        // An item that stays keeps its key, so the item that wanted this key stays too, and so on.
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
        if (tree_.find(renaming.key) == nullptr) {
            renaming.failure = ErrorNumber::ElementNotFound;
        } else if (!items_.contains(renaming.key) || !leaving_.insert(renaming.key).second) {
            renaming.failure = ErrorNumber::InvalidCall;
        }
    }

    void claim(ItemRenaming& renaming) {
        renaming.newKey = Key(Key(renaming.key.parent()), renaming.name);
        if (!claims_.try_emplace(renaming.newKey, &renaming).second) {
            stay(renaming, ErrorNumber::KeyInCollection);
        } else if (leaving_.contains(renaming.newKey)) {
            return;
        } else if (items_.contains(renaming.newKey)) {
            stay(renaming, ErrorNumber::KeyInCollection);
        } else if (tree_.find(renaming.newKey) != nullptr) {
            stay(renaming, ErrorNumber::KeyNotUnique);
        }
    }

    void stay(ItemRenaming& renaming, ErrorNumber reason) {
        renaming.failure = reason;
        staying_.push_back(&renaming);
    }

    const StructureTree& tree_;
    const KeyedCollection<clsItem>& items_;
    std::vector<ItemRenaming>& renamings_;
    std::unordered_set<Key> leaving_;
    std::unordered_map<Key, ItemRenaming*> claims_;
    std::vector<ItemRenaming*> staying_;
};

}  // namespace

void renameItems(Content& content, std::vector<ItemRenaming>& renamings) {
    const Plan plan(content, renamings);
    std::vector<NewKey> keys;
    std::vector<const std::string*> names;
    for (const ItemRenaming& renaming : renamings) {
        if (renaming.failure) continue;
        keys.push_back({&content.tree().at(renaming.key), renaming.newKey});
        names.push_back(&renaming.name);
    }
    content.rekey(keys);
    for (std::size_t i = 0; i < keys.size(); ++i) content.rename(*keys[i].node, *names[i]);
}

}  // namespace trevandix
