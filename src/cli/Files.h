#pragma once

#include <memory>
#include <string>

#include "model/Configuration.h"

namespace trevandix {

class XmlParser;

/// The configuration in the file. Errors: CommandError.
std::unique_ptr<Configuration> readFile(XmlParser& parser, const std::string& file);

/// Refuses to replace a file. Errors: CommandError when there is one.
void requireFree(const std::string& file);

/// Saves as safely as the editor does. Errors: CommandError.
void writeFile(const Configuration& configuration, const std::string& file);

}  // namespace trevandix
