#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <unordered_map>

#include "model/Configuration.h"

namespace trevandix {

/// A unit or branch that an added item goes into: one that exists, or a branch that is to be made.
struct IntendedContainer {
    const TreeNode* node = nullptr;            ///< nullptr for a branch that is to be made
    const IntendedContainer* above = nullptr;  ///< of such a branch
    Key key{};                                 ///< of such a branch
    std::string_view name{};                   ///< of such a branch
};

/// An item that is to be changed or added.
struct IntendedItem {
    const clsItem* record;                         ///< that it gets
    const TreeNode* node = nullptr;                ///< nullptr for one that is to be added
    const IntendedContainer* container = nullptr;  ///< of one that is to be added
};

/// A unit that is to be changed.
struct IntendedUnit {
    Key unit;              ///< as it is now
    const clsPLC* record;  ///< that it gets
};

/// What is to become of a configuration.
struct Intended {
    /// The record that a node's item gets; the present one if it stays.
    std::function<const clsItem&(const TreeNode& node, const clsItem& present)> recordOf;
    std::span<const IntendedItem> items{};           ///< those without a node are added
    std::unordered_map<Key, const clsPLC*> units{};  ///< the records that units get
};

}  // namespace trevandix
