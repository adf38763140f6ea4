#pragma once

#include "platform/Services.h"

namespace trevandix {

/// The value "ConfigFile" under HKEY_LOCAL_MACHINE, Software\VOSKAutomation\<interface kind>, in the 64-bit
/// and the 32-bit view, because the server may be built for either. Writing there needs administrative
/// rights.
class WindowsRegistry : public Registry {
public:
    /// True when both views hold the path.
    bool publish(std::string_view interfaceKind, std::string_view filePath) override;
};

}  // namespace trevandix
