#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace trevandix {

/// The system's open and save dialogs. An empty result means that the user cancelled.
class FileDialog {
public:
    virtual ~FileDialog() = default;
    virtual std::optional<std::string> open(std::string_view title, std::string_view filter) = 0;
    virtual std::optional<std::string> save(std::string_view title, std::string_view filter,
                                            std::string_view proposedName) = 0;
};

/// The system's clipboard, read as text (UTF-8, line ends as the other program left them).
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual std::string text() = 0;
};

/// Where the OPC server looks for its configuration.
class Registry {
public:
    virtual ~Registry() = default;
    /// Publishes `filePath` as value "ConfigFile" for the interface kind. False when the system refuses.
    virtual bool publish(std::string_view interfaceKind, std::string_view filePath) = 0;
};

enum class Pointer { Default, Hourglass, Icon };

/// The screen's mouse pointer.
class MousePointer {
public:
    virtual ~MousePointer() = default;
    virtual void set(Pointer pointer) = 0;
};

/// Shows `pointer` until the end of the scope, however it is left.
class PointerScope {
public:
    PointerScope(MousePointer& pointer, Pointer shape) : pointer_(pointer) { pointer_.set(shape); }
    ~PointerScope() { pointer_.set(Pointer::Default); }
    PointerScope(const PointerScope&) = delete;
    PointerScope& operator=(const PointerScope&) = delete;

private:
    MousePointer& pointer_;
};

}  // namespace trevandix
