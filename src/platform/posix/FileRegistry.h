#pragma once

#include "platform/Services.h"

namespace trevandix {

/// Stands in for the Windows registry elsewhere: one file per interface kind in the user's configuration
/// folder, VOSKAutomation/<interface kind>.ini with the line "ConfigFile=<path>".
class FileRegistry : public Registry {
public:
    /// Replaces the file as a whole or leaves it as it was.
    bool publish(std::string_view interfaceKind, std::string_view filePath) override;
};

}  // namespace trevandix
