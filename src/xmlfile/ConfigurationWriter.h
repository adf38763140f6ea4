#pragma once

#include <string>

#include "model/Configuration.h"
#include "platform/Messages.h"
#include "platform/Services.h"

namespace trevandix {

/// Writes the configuration as the file that the server reads.
class ConfigurationWriter {
public:
    ConfigurationWriter(const Configuration& configuration, Messages& messages, MousePointer& pointer);

    /// Replaces the file at the path. False when it failed; the user has been told then. The path is freed
    /// before the new file is begun there, and a partly written one stays; the old content is kept beside it
    /// until the new one is safely on the disk.
    bool CreateXML(const std::string& filePath);

    /// Where the old content is after a failure; empty when there was none, or it is where it was.
    const std::string& backup() const { return backup_; }

private:
    void writeFile(const std::string& filePath);

    const Configuration& configuration_;
    Messages& messages_;
    MousePointer& pointer_;
    std::string backup_;
};

/// `depth` tab characters.
std::string Indentation(int depth);

}  // namespace trevandix
