#pragma once

#include <string>

#include "editor/EditorContext.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix {

// Reading and writing a file with what the user sees of it: the hourglass, the progress of a load, and a
// message on failure.

/// Reads the file into the configuration, as `ConfigurationReader` does. Shows a message and returns false
/// when the file is no configuration or reading fails.
bool ImportXML(Configuration& configuration, const std::string& filePath, Origin origin,
               const Platform& platform);
/// Writes the file. Shows a message and returns false when that fails.
bool CreateXML(const Configuration& configuration, const std::string& filePath, SafeFile& file,
               const Platform& platform);

}  // namespace trevandix
