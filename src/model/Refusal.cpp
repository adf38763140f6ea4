#include "model/Refusal.h"

#include <algorithm>
#include <array>

#include "model/Configuration.h"
#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix {

std::optional<Refusal> refusal(const ItemFields& item) {
    constexpr double kLastAddress = 65535;
    if (item.name.empty()) return Refusal{"name", "Item name field is empty."};
    if (item.table.empty()) return Refusal{"table", "ModBus Type field is empty."};
    if (item.type.empty()) return Refusal{"type", "Data Type field is empty."};
    if (item.address.empty()) return Refusal{"address", "Memory address field is empty."};
    const double address = leadingNumber(item.address);
    if (address < 0 || address > kLastAddress) {
        return Refusal{"address", "Memory address field is not valid. It must be between 0 and 65535."};
    }
    if (hasBitNumber(item.table, item.type) && item.bit.empty())
        return Refusal{"bit", "Bit number field is empty."};
    if (hasElements(item.type)) {
        if (item.elements.empty()) return Refusal{"elements", "Number of elements field is empty."};
        if (leadingNumber(item.elements) < 0)
            return Refusal{"elements", "Number of elements field is not valid."};
    }
    if (item.accessRight.empty()) return Refusal{"accessRight", "Access Rights field is empty."};
    return std::nullopt;
}

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

// Units on one serial line must have the same settings. Comparing with one other unit is enough, because the
// others agree with it.
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

std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited) {
    if (!edited) {
        for (const auto& [key, other] : configuration.dataTypes) {
            if (other->getName() == type.name) return Refusal{"name", "ModBus type already existing"};
        }
    }
    if (!isNumeric(type.readCode)) return Refusal{"readCode", "Check Read Function code"};
    if (!isReadOnly(type.name) && !isNumeric(type.writeCode))
        return Refusal{"writeCode", "Check Write Function code"};
    if (type.single && !isNumeric(type.singleCode))
        return Refusal{"singleCode", "Check Single Write Function code"};
    return std::nullopt;
}

}  // namespace trevandix
