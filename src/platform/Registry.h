#pragma once

#include <memory>
#include <string_view>

namespace trevandix {

/// Where the OPC server looks for its configuration.
class Registry {
public:
    virtual ~Registry() = default;
    /// Publishes `filePath`, a full path, as value "ConfigFile" for the interface kind. False when the system
    /// refuses.
    [[nodiscard]] virtual bool publish(std::string_view interfaceKind, std::string_view filePath) = 0;
};

/// The one of the system that the program runs on.
std::unique_ptr<Registry> systemRegistry();

}  // namespace trevandix
