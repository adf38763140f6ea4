#pragma once

#include <string_view>

#include "platform/Services.h"

namespace trevandix {

/// Publishes paths where the OPC server looks for them.
///
/// Windows: the value "ConfigFile" under HKEY_LOCAL_MACHINE, Software\VOSKAutomation\<interface kind>, in the
/// 64-bit and the 32-bit view, because the server may be built for either. Needs administrative rights.
///
/// Elsewhere: the line "ConfigFile=<path>" of VOSKAutomation/<interface kind>.ini in the user's configuration
/// folder. Replaces the whole file or leaves it unchanged.
class SystemRegistry : public Registry {
public:
    /// False when the system refuses; the path may then be published in one of the views only.
    bool publish(std::string_view interfaceKind, std::string_view filePath) override;
};

}  // namespace trevandix
