#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "table/Plan.h"

namespace trevandix {

/// The record that a row makes of an item or adds.
struct ItemOutcome {
    bool adds = false;
    ItemFields before{};  ///< of the item as it is
    ItemFields fields{};  ///< as entered
    ItemFields after{};   ///< of the new record; as entered if there is none
    clsItem record{};
    ColumnSet changed = 0;
    std::string failure{};  ///< why there is no record: a number does not fit
};

/// What the rows of a table make of items, each looked at by itself.
class ItemRows {
public:
    ItemRows(const Configuration& configuration, const Table& table);

    /// `container` is the key of the unit or branch around the item, `node` the item's, or nullptr for a new
    /// one.
    ItemOutcome outcome(const CsvRow& row, const Key& container, const TreeNode* node,
                        const std::string& name) const;
    /// Why the dialog would not accept it; empty if it would. Does not check whether the name is free.
    std::string reason(const ItemOutcome& made);

private:
    using Texts = std::vector<std::string>;
    const Texts* choices(std::size_t column, const ItemFields& item);

    const Configuration& configuration_;
    const Table& table_;
    // What the dialog's lists offer.
    Texts tables_, bits_;
    std::unordered_map<std::string, std::pair<Texts, Texts>> ofTable_;  // types and access rights
};

}  // namespace trevandix
