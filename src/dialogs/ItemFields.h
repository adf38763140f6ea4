#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Form.h"

namespace trevandix {

/// The labels of the value types that items of a Modbus table may have, in the order in which they are
/// offered.
std::vector<std::string> valueTypesOf(std::string_view table);
std::vector<std::string> accessRightsOf(std::string_view table);
/// The bits of a register, "0" to "15".
std::vector<std::string> bitNumbers();

/// What the user is told of the first field of the item dialog that is not valid; empty when all are.
std::string itemFieldError(const Form& dialog);

}  // namespace trevandix
