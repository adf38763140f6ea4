#pragma once

#include "model/Configuration.h"
#include "platform/Form.h"

namespace trevandix {

/// Asks for the interface kind of a new configuration. Closed by its title bar it leaves the kind as it was.
void showFrmSelect(Forms& forms, EditingState& state);

}  // namespace trevandix
