#pragma once

#include <string_view>

#include "model/StructureTree.h"
#include "platform/Messages.h"

namespace trevandix {

/// True when the name has none of the characters that would break keys and files; else tells which one it
/// has.
bool checkForbiddenCharacters(std::string_view name, Messages& messages);

/// True when no sibling of the kind has the name; else says so. The siblings are the selected node's
/// children, or, while that node is being edited, those beside it. A failure is shown and counts as a
/// refusal.
bool CheckDuplNames(NodeTag tag, std::string_view name, const StructureTree& tree, bool edit,
                    Messages& messages);

}  // namespace trevandix
