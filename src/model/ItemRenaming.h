#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/Key.h"
#include "platform/RuntimeError.h"

namespace trevandix {

class Content;

/// One item's new name; what came of it is told in the last two members.
struct ItemRenaming {
    Key key;
    std::string name;
    Key newKey{};
    std::optional<ErrorNumber> failure{};  ///< why the item stayed as it was
};

/// Renames many items at once, records and nodes together, so that names can be swapped among them. An item
/// whose new key is taken, by an item outside or by one that has to stay, keeps its name: KeyInCollection,
/// KeyNotUnique. One that is not there, or comes twice: InvalidCall, ElementNotFound.
void renameItems(Content& content, std::vector<ItemRenaming>& renamings);

}  // namespace trevandix
