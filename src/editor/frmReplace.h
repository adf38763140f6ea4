#pragma once

#include <string>
#include <vector>

#include "platform/Form.h"

namespace trevandix {

/// Shows old and new texts side by side, the first row being the header, with a warning unless the rows are
/// in address order. True when the user confirmed.
bool showFrmReplace(Forms& forms, const std::vector<std::vector<std::string>>& rows, bool inOrder);

}  // namespace trevandix
