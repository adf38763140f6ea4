#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "table/Containers.h"
#include "table/Plan.h"

namespace trevandix {

/// What becomes of items: who gets which name, and how all of it is done.
class ItemDrafts : public Plan {
public:
    void apply(Configuration& configuration, const TableProgress& tell) const override;
    void remarkFindings(Pulse& pulse) override;

protected:
    /// What becomes of an item.
    struct Draft {
        Container* container = nullptr;
        TreeNode* node = nullptr;  ///< nullptr for a new item
        clsItem record{};
        bool fitsBoth = false;  ///< a row fits the items of its old and of its new name

        bool takesName() const { return node == nullptr || node->key() != record.sKey(); }
    };

    explicit ItemDrafts(const Configuration& configuration) : configuration_(configuration) {}

    void add(IntendedChange change, Draft draft);
    /// When all are there: refuses those whose name is taken.
    void claimNames();

    const Configuration& configuration_;

private:
    void addItems(Configuration& configuration, Progress& progress) const;
    void refuseDoubtful();
    void claim(std::size_t draft);
    static std::string newBranches(Container* container);
    bool claimContainers(Container* container);
    bool isFree(const Key& key) const;
    void refuse(std::size_t draft, std::string_view reason);
    void settle();

    std::vector<Draft> drafts_;                     // of the changes
    std::unordered_map<Key, std::size_t> leaving_;  // renamed items, by their old key
    std::unordered_map<Key, std::variant<std::size_t, Container*>> claims_;  // who gets a key
    std::vector<Key> staying_;  // of items that were to be renamed and are not
};

}  // namespace trevandix
