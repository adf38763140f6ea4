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

/// The rights to publish with. `Asked` asks the user for an administrator's if the program's own are too few.
enum class Rights { Own, Asked };
/// What became of a publication.
enum class Publication { Done, Refused, RightsDenied, NobodyToAsk };

/// Why nothing was published, as part of a sentence. Empty for Done.
std::string_view reason(Publication publication);

/// Where the OPC server finds the path of its configuration.
class Registry {
public:
    virtual ~Registry() = default;
    /// Publishes `filePath` as the value "ConfigFile" of the interface kind.
    virtual Publication publish(std::string_view interfaceKind, std::string_view filePath, Rights rights) = 0;
    /// True if the system has an administrator's rights that the user can be asked for.
    virtual bool canAsk() const = 0;
    /// True if the path is on a drive that other accounts may not see, such as the server's.
    virtual bool onMappedDrive(std::string_view filePath) const = 0;
};

/// The warning about a path on a mapped drive, as part of a sentence.
inline constexpr std::string_view kMappedDrive = "the server's account may not see this network drive";

/// Publishes paths where the OPC server looks for them.
///
/// Windows: the value "ConfigFile" under HKEY_LOCAL_MACHINE, Software\VOSKAutomation\<interface kind>, in the
/// 64-bit and the 32-bit view, because the server may be built for either. Needs administrative rights.
///
/// Elsewhere: the line "ConfigFile=<path>" of VOSKAutomation/<interface kind>.ini in the user's configuration
/// folder. Replaces the whole file or leaves it unchanged.
/// When the system refuses, the path may be published in one of the views only.
class SystemRegistry : public Registry {
public:
    /// `Rights::Asked` starts this program once more, with `kPublishValues`, and waits for it.
    Publication publish(std::string_view interfaceKind, std::string_view filePath, Rights rights) override;
    bool canAsk() const override;
    bool onMappedDrive(std::string_view filePath) const override;
};

/// The first argument of a program that is to publish two values and nothing else: interface kind and
/// absolute path. Its exit code is 0 if it did.
inline constexpr std::string_view kPublishValues = "--publish-values";

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
