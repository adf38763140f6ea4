#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/Form.h"
#include "table/ChangeSet.h"

namespace trevandix {

/// Changes that the user is to see before they are applied, wherever they come from.
struct ChangesToConfirm {
    std::string_view caption;                       ///< of the window: "Import Table"
    std::span<const IntendedChange> changes;        ///< shown as they are, so they must outlive the window
    std::string_view one = "item", many = "items";  ///< what the objects are called
    std::string note{};                             ///< what else is to be known; empty for nothing
};

/// Shows each field's old and new text, what is refused first. True when the user confirms: then all that is
/// accepted is to be applied. Nothing can be confirmed that changes nothing, and where something is refused
/// only after the user has ticked "Only what can be applied".
bool confirmChanges(Forms& forms, const ChangesToConfirm& shown);

/// "12 items to change, 3 to add, 2 refused", or "Nothing to change".
std::string changeCounts(const ChangesToConfirm& shown);

}  // namespace trevandix
