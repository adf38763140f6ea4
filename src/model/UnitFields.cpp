#include "model/UnitFields.h"

#include <algorithm>

#include "model/Numbers.h"

namespace trevandix {

namespace {

constexpr double kLastIdentifier = 254;
constexpr std::string_view kPortPrefix = "COM";

std::optional<Refusal> identifierRefusal(const std::string& text, const Configuration& configuration,
                                         const clsPLC* edited) {
    const auto refused = [](std::string_view message) { return Refusal{"identifier", std::string(message)}; };
    const auto identifier = wholeNumber(text);
    if (!identifier) return refused("UI identifier is not valid.");
    if (*identifier < 0 || *identifier > kLastIdentifier)
        return refused("UI identifier must be between 0 and 254.");
    // A file may hold the same identifier twice; such a unit may be edited as long as it keeps its own.
    if (edited != nullptr && edited->getUI() == *identifier) return std::nullopt;
    for (const auto& [key, unit] : configuration.units) {
        if (unit->getUI() == *identifier) return refused("UI already existing. Please use a different one");
    }
    return std::nullopt;
}

std::optional<Refusal> portRefusal(const std::string& port) {
    const auto refused = [](std::string_view message) { return Refusal{"port", std::string(message)}; };
    if (port.empty()) return refused("Port name field empty.");
    if (!port.starts_with(kPortPrefix)) return refused("Invalid Port name. It must begin with \"COM\"");
    if (!isNumeric(port.substr(kPortPrefix.size())))
        return refused("Invalid Port name. Missing port number.");
    return std::nullopt;
}

// Units on one line must agree about it. Only the first other unit is compared: the others agree with that
// one.
std::optional<Refusal> sharedPortRefusal(const UnitFields& unit, const Configuration& configuration) {
    for (const auto& [key, other] : configuration.units) {
        if (other->getCom() != unit.port || other->getName() == unit.name) continue;
        struct Comparison {
            bool equal;
            std::string_view field;
            std::string_view label;
        };
        const std::array comparisons{
            Comparison{leadingNumber(unit.baud) == other->getBaud(), "baud", "Baud Rate"},
            Comparison{leadingNumber(unit.dataBits) == other->getDataBits(), "dataBits", "Data Bits"},
            Comparison{leadingNumber(unit.stopBits) == other->getStopBits(), "stopBits", "Stop Bits"},
            Comparison{unit.parity == other->getParity(), "parity", "Parity"},
            Comparison{unit.flowControl == other->getFlowCtl(), "flowControl", "Flow Control"},
        };
        const auto* different = std::ranges::find(comparisons, false, &Comparison::equal);
        if (different == comparisons.end()) return std::nullopt;
        return Refusal{different->field, "Plc " + other->getName() + " has the same port but different " +
                                             std::string(different->label)};
    }
    return std::nullopt;
}

std::optional<Refusal> rtuRefusal(const UnitFields& unit, const Configuration& configuration) {
    if (auto refused = portRefusal(unit.port)) return refused;
    if (unit.silent.empty()) return Refusal{"silent", "Silent interval field empty."};
    if (!isNumeric(unit.silent)) return Refusal{"silent", "Invalid Silent interval."};
    return sharedPortRefusal(unit, configuration);
}

}  // namespace

std::optional<Refusal> refusal(const UnitFields& unit, const Configuration& configuration,
                               const clsPLC* edited) {
    if (unit.name.empty()) return Refusal{"name", "Name field is empty."};
    if (auto refused = identifierRefusal(unit.identifier, configuration, edited)) return refused;
    if (!isNumeric(unit.timeout)) return Refusal{"timeout", "Timeout value is not valid."};
    const std::string& kind = configuration.state.interfaceKind;
    if (kind == kTcpIp && unit.address.empty()) return Refusal{"address", "Address field is empty."};
    return kind == kRtu ? rtuRefusal(unit, configuration) : std::nullopt;
}

}  // namespace trevandix
