#pragma once

#include <string>

#include "editor/Platform.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix {

// The reader and the writer with what their user sees of them: the hourglass, the progress of a load, and a
// message when they fail.

/// Reads the file into the configuration, as `ConfigurationReader` does. False when the file is no
/// configuration or reading failed; the user has been told then.
bool ImportXML(Configuration& configuration, const std::string& filePath, Origin origin,
               const Platform& platform);
/// False when writing failed; the user has been told then.
bool CreateXML(const Configuration& configuration, const std::string& filePath, SafeFile& file,
               const Platform& platform);

}  // namespace trevandix
