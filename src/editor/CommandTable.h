#pragma once

#include "platform/Commands.h"

namespace trevandix {

/// The menu bar and the toolbar of the main window.
const CommandTables& commandTables();

}  // namespace trevandix
