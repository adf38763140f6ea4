#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "xmlfile/ConfigurationPrinter.h"
#include "xmlfile/Latin1File.h"

namespace trevandix {

/// Writes the configuration into a new file in slices so short that nobody notices.
class RecoveryWriter {
public:
    enum class Outcome { More, Done, Outdated };

    /// Errors: as of `Latin1File`.
    RecoveryWriter(const Configuration& configuration, const std::string& filePath);

    /// Goes on for about as long. Outdated: the configuration has changed since the beginning, the file is
    /// worth nothing. Errors: as of `ConfigurationPrinter`.
    Outcome step(std::chrono::milliseconds budget);

    const std::string& filePath() const { return filePath_; }
    /// `Configuration::revision` of what is written.
    std::uint64_t revision() const { return revision_; }

private:
    const Configuration& configuration_;
    std::string filePath_;
    std::uint64_t revision_;
    std::uint64_t changes_;
    ConfigurationPrinter printer_;
    Latin1File file_;
};

}  // namespace trevandix
