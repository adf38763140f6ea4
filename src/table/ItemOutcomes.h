#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "table/Plan.h"

namespace trevandix {

/// The record that a change makes of an item or adds.
struct ItemOutcome {
    std::shared_ptr<const clsItem> old{};  ///< nullptr for a new item
    ItemFields before{};                   ///< of the item as it is
    ItemFields fields{};                   ///< as entered
    ItemFields after{};                    ///< of the new record; as entered if there is none
    clsItem record{};
    ColumnSet changed = 0;
    std::string failure{};  ///< why there is no record: a number does not fit
};

/// What is entered although it may be empty.
struct Entered {
    bool bit = false;
    bool elements = false;
};

/// What a change makes of items, each looked at by itself.
class ItemOutcomes {
public:
    explicit ItemOutcomes(const Configuration& configuration);

    /// Begins with the fields as they are; `node` is the item's, or nullptr for a new one.
    ItemOutcome begun(const TreeNode* node) const;
    /// Ends when `fields` are as entered; `container` is the key of the unit or branch around the item.
    static void end(ItemOutcome& made, const Key& container, Entered entered);
    /// Why the dialog would not accept it; empty if it would. Does not check whether the name is free.
    std::string reason(const ItemOutcome& made);

private:
    using Texts = std::vector<std::string>;
    const Texts* choices(std::size_t column, const ItemFields& item);

    const Configuration& configuration_;
    // What the dialog's lists offer.
    Texts tables_, bits_;
    std::unordered_map<std::string, std::pair<Texts, Texts>> ofTable_;  // types and access rights
};

}  // namespace trevandix
