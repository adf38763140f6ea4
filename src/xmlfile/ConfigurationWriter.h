#pragma once

#include <string>

#include "model/Configuration.h"

namespace trevandix {

/// Writes the configuration as the file that the server reads.
class ConfigurationWriter {
public:
    explicit ConfigurationWriter(const Configuration& configuration) : configuration_(configuration) {}

    /// Replaces the file at the path, which is freed before the new file is begun there. Errors: those of
    /// files, and of a configuration that cannot be printed; a partly written file stays then. The old
    /// content is kept beside the file until the new one is safely on the disk.
    void write(const std::string& filePath);

    /// Where the old content is after a failure; empty when there was none, or it is where it was.
    const std::string& backup() const { return backup_; }

private:
    const Configuration& configuration_;
    std::string backup_;
};

/// `depth` tab characters.
std::string Indentation(int depth);

}  // namespace trevandix
