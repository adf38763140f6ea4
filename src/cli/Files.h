#pragma once

#include <string>

#include "model/Configuration.h"

namespace trevandix {

class XmlParser;

/// The configuration in the file. It stays until the second call after this one, the last two until the
/// program ends: taking a large one apart would take long. Errors: CommandError.
const Configuration& readFile(XmlParser& parser, const std::string& file);

/// Refuses to replace a file. Errors: CommandError when there is one.
void requireFree(const std::string& file);

/// Saves as safely as the editor does. Errors: CommandError.
void writeFile(const Configuration& configuration, const std::string& file);

}  // namespace trevandix
