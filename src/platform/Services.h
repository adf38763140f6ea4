#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace trevandix {

/// NoYes is YesNo with No as the default button.
enum class Buttons { Ok, YesNo, NoYes, YesNoCancel };
enum class Icon { None, Exclamation, Critical };
enum class Answer { Ok, Yes, No, Cancel };

/// Modal message boxes, titled with the program's name.
class Messages {
public:
    virtual ~Messages() = default;
    /// `text` is UTF-8. Closing the box means Ok or Cancel; a YesNo or NoYes box can only be answered.
    virtual Answer show(std::string_view text, Buttons buttons = Buttons::Ok, Icon icon = Icon::None) = 0;

    bool confirms(std::string_view question, Buttons buttons = Buttons::YesNo) {
        return show(question, buttons) == Answer::Yes;
    }
};

/// The system's open and save dialogs. No result means that the user cancelled.
class FileDialog {
public:
    virtual ~FileDialog() = default;
    virtual std::optional<std::string> open(std::string_view title, std::string_view filter) = 0;
    virtual std::optional<std::string> save(std::string_view title, std::string_view filter,
                                            std::string_view proposedName) = 0;
};

/// The system's clipboard as UTF-8 text.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    /// Line ends are those of the program that copied it.
    virtual std::string text() = 0;
    /// Lines that end with LF get the system's line ends; a text with CR stays as it is. False when another
    /// program keeps the clipboard locked.
    virtual bool setText(std::string_view text) = 0;
};

/// Where the OPC server finds the path of its configuration.
class Registry {
public:
    virtual ~Registry() = default;
    /// Publishes `filePath` as the value "ConfigFile" of the interface kind. False when the system refuses.
    virtual bool publish(std::string_view interfaceKind, std::string_view filePath) = 0;
};

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

enum class Pointer { Default, Hourglass, Icon };

/// The mouse pointer of the program.
class MousePointer {
public:
    virtual ~MousePointer() = default;
    virtual void set(Pointer pointer) = 0;
};

/// Shows a pointer until the end of the scope.
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
