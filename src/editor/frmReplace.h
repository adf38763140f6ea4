#pragma once

#include <string>
#include <vector>

#include "platform/Form.h"

namespace trevandix {

/// Shows old and new texts side by side, with a warning unless the rows are in address order. The first row
/// is the header. True when the user confirms.
bool showFrmReplace(Forms& forms, const std::vector<std::vector<std::string>>& rows, bool inOrder);

}  // namespace trevandix
