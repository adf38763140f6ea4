#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "model/ValueTypes.h"
#include "model/clsItem.h"
#include "table/ChangeSet.h"

namespace trevandix {

/// One text in place of another, wherever it stands in names or comments.
struct Replacement {
    std::string ItemFields::*where = nullptr;  ///< name or comment
    std::string find{};                        ///< replaces nothing if empty
    std::string by{};
    bool ignoreCase = false;

    std::string in(std::string_view text) const;
};

/// What many items are to get; what is not given stays as it is.
struct ItemsEdit {
    std::vector<std::pair<std::string ItemFields::*, std::string>> values{};  ///< as texts of the dialog
    std::int64_t move = 0;                                                    ///< is added to the addresses
    std::optional<ItemPlace> start{};  ///< numbers the items anew from here, in each unit and Modbus table
    Replacement replacement{};
};

/// The items at and below the nodes, each once: those of one node as the tree has them.
std::vector<const TreeNode*> itemsIn(std::span<const TreeNode* const> nodes);

/// What becomes of the items, in this order. An item without a record stays as it is.
ChangeSet changeItems(const Configuration& configuration, std::span<const TreeNode* const> items,
                      const ItemsEdit& edit, const TableProgress& progress = {});

}  // namespace trevandix
