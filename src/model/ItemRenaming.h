#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/Key.h"
#include "platform/RuntimeError.h"

namespace trevandix {

class Content;

/// An item's new name. `renameItems` fills in the last two members.
struct ItemRenaming {
    Key key;
    std::string name;
    Key newKey{};
    std::optional<ErrorNumber> failure{};  ///< why the item stayed as it was
};

/// Renames many items at once, records and nodes together, so that they can exchange names. An item keeps its
/// name if its new key belongs to an item that is not renamed or must keep its name (KeyInCollection,
/// KeyNotUnique), if it does not exist, or if it comes twice (InvalidCall, ElementNotFound).
void renameItems(Content& content, std::vector<ItemRenaming>& renamings);

}  // namespace trevandix
