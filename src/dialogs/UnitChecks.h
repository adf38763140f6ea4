#pragma once

#include <string>

#include "model/Configuration.h"
#include "platform/Form.h"

namespace trevandix {

/// What the user is told of the first field of the unit dialog that is not valid; empty when all are.
/// `edited` is the unit being edited, or nullptr.
std::string unitFieldError(const Form& dialog, const Configuration& configuration, const clsPLC* edited);

}  // namespace trevandix
