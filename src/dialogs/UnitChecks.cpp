#include "dialogs/UnitChecks.h"

#include <algorithm>
#include <array>

#include "model/Numbers.h"

namespace trevandix {

namespace {

constexpr double kLastIdentifier = 254;
constexpr std::string_view kPortPrefix = "COM";

std::string identifierError(const std::string& text, const Configuration& configuration,
                            const clsPLC* edited) {
    const auto identifier = wholeNumber(text);
    if (!identifier) return "UI identifier is not valid.";
    if (*identifier < 0 || *identifier > kLastIdentifier) return "UI identifier must be between 0 and 254.";
    // A file may hold the same identifier twice; such a unit may be edited as long as it keeps its own.
    if (edited != nullptr && edited->getUI() == *identifier) return {};
    for (const auto& [key, unit] : configuration.units) {
        if (unit->getUI() == *identifier) return "UI already existing. Please use a different one";
    }
    return {};
}

std::string portError(const std::string& port) {
    if (port.empty()) return "Port name field empty.";
    if (!port.starts_with(kPortPrefix)) return "Invalid Port name. It must begin with \"COM\"";
    if (!isNumeric(port.substr(kPortPrefix.size()))) return "Invalid Port name. Missing port number.";
    return {};
}

// Units on one line must agree about it. Only the first other unit is compared: the others agree with that
// one.
std::string sharedPortError(const Form& dialog, const Configuration& configuration) {
    const std::string port = dialog.text("txtPort");
    const std::string name = dialog.text("txtName");
    const auto number = [&](std::string_view control) { return leadingNumber(dialog.text(control)); };
    for (const auto& [key, unit] : configuration.units) {
        if (unit->getCom() != port || unit->getName() == name) continue;
        struct Comparison {
            bool equal;
            std::string_view label;
        };
        const std::array comparisons{
            Comparison{number("cmbBaud") == unit->getBaud(), "Baud Rate"},
            Comparison{number("cmbData") == unit->getDataBits(), "Data Bits"},
            Comparison{number("cmbStop") == unit->getStopBits(), "Stop Bits"},
            Comparison{dialog.text("cmbParity") == unit->getParity(), "Parity"},
            Comparison{dialog.text("cmbFlow") == unit->getFlowCtl(), "Flow Control"},
        };
        const auto* different = std::ranges::find(comparisons, false, &Comparison::equal);
        if (different == comparisons.end()) return {};
        return "Plc " + unit->getName() + " has the same port but different " + std::string(different->label);
    }
    return {};
}

std::string rtuError(const Form& dialog, const Configuration& configuration) {
    const std::string port = portError(dialog.text("txtPort"));
    if (!port.empty()) return port;
    const std::string silent = dialog.text("txtSilent");
    if (silent.empty()) return "Silent interval field empty.";
    if (!isNumeric(silent)) return "Invalid Silent interval.";
    return sharedPortError(dialog, configuration);
}

}  // namespace

std::string unitFieldError(const Form& dialog, const Configuration& configuration, const clsPLC* edited) {
    if (dialog.text("txtName").empty()) return "Name field is empty.";
    const std::string identifier = identifierError(dialog.text("txtUI"), configuration, edited);
    if (!identifier.empty()) return identifier;
    if (!isNumeric(dialog.text("txtTimeout"))) return "Timeout value is not valid.";
    const std::string& kind = configuration.state.interfaceKind;
    if (kind == kTcpIp && dialog.text("txtAddress").empty()) return "Address field is empty.";
    return kind == kRtu ? rtuError(dialog, configuration) : std::string();
}

}  // namespace trevandix
