#pragma once

#include <optional>
#include <string_view>

#include "model/Refusal.h"
#include "model/StructureTree.h"

namespace trevandix {

/// Refuses a name with one of the characters that would break keys and files.
std::optional<Refusal> forbiddenCharacter(std::string_view name);

/// Refuses the name that another child of `container` with the tag has. `edited` is the node being edited, or
/// nullptr.
std::optional<Refusal> duplicateName(const TreeNode& container, NodeTag tag, std::string_view name,
                                     const TreeNode* edited);

}  // namespace trevandix
