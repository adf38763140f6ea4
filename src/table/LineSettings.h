#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/clsPLC.h"
#include "table/ChangeSet.h"

namespace trevandix {

/// Texts of some of a unit's fields.
using UnitTexts = std::vector<std::pair<std::string UnitFields::*, std::string>>;

/// What becomes of the units on a serial port when all of them get these settings.
ChangeSet changeLine(const Configuration& configuration, std::string_view port, const UnitTexts& settings);

}  // namespace trevandix
