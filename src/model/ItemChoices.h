#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

/// The labels of the value types that items of a Modbus table may have, in the order in which they are
/// offered.
std::vector<std::string> valueTypesOf(std::string_view table);
std::vector<std::string> accessRightsOf(std::string_view table);
/// The bits of a register, "0" to "15".
std::vector<std::string> bitNumbers();

}  // namespace trevandix
