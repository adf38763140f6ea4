#pragma once

#include <string>

namespace trevandix {

/// Name and version of the XML parser that the program was built with.
std::string pugiVersion();

}  // namespace trevandix
