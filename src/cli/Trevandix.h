#pragma once

#include <string>
#include <vector>

#include "cli/Commands.h"

namespace trevandix {

/// Runs the command that the arguments name; they are UTF-8 and do not include the program's own name.
/// Failures have been told then.
ExitCode runTrevandix(const Console& console, XmlParser& parser, Registry& registry,
                      std::vector<std::string> arguments);

}  // namespace trevandix
