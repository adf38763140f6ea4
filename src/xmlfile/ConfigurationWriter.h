#pragma once

#include <string>

#include "model/Configuration.h"
#include "platform/SafeFile.h"

namespace trevandix {

/// Writes the configuration as the file that the server reads.
class ConfigurationWriter {
public:
    explicit ConfigurationWriter(const Configuration& configuration) : configuration_(configuration) {}

    /// Replaces the file at the path. Errors: as of `SafeFile::replace`, and of a configuration that cannot
    /// be printed.
    void write(const std::string& filePath, SafeFile& file) const;
    void write(const std::string& filePath) const {
        SafeFile file;
        write(filePath, file);
    }

private:
    const Configuration& configuration_;
};

/// `depth` tab characters.
std::string Indentation(int depth);

}  // namespace trevandix
