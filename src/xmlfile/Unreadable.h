#pragma once

#include <string>

#include "model/Configuration.h"

namespace trevandix {

/// The first text that makes the configuration's file no XML, since the writer escapes nothing, or no
/// configuration, as a user would name it: `PLC1.Area.Level: comment holds "&"`. Empty where every program
/// can read the file.
std::string whatMakesUnreadable(const Configuration& configuration);

}  // namespace trevandix
