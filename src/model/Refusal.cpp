#include "model/Refusal.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/Configuration.h"
#include "model/ItemSpan.h"
#include "model/Numbers.h"
#include "model/UnitChoices.h"
#include "model/ValueTypes.h"

namespace trevandix {

namespace {

std::optional<Refusal> first(std::vector<Refusal> refusals) {
    if (refusals.empty()) return std::nullopt;
    return std::move(refusals.front());
}

void refuseIf(bool wrong, std::vector<Refusal>& refusals, std::string_view field, std::string_view message) {
    if (wrong) refusals.push_back({field, std::string(message)});
}

void add(std::vector<Refusal>& refusals, std::optional<Refusal> refused) {
    if (refused) refusals.push_back(std::move(*refused));
}

}  // namespace

std::vector<Refusal> refusals(const ItemFields& item) {
    std::vector<Refusal> found;
    refuseIf(item.name.empty(), found, "name", "Item name field is empty.");
    refuseIf(item.table.empty(), found, "table", "ModBus Type field is empty.");
    refuseIf(item.type.empty(), found, "type", "Data Type field is empty.");
    refuseIf(item.address.empty(), found, "address", "Memory address field is empty.");
    const double address = leadingNumber(item.address);
    refuseIf(address < 0 || address > kLastAddress, found, "address",
             "Memory address field is not valid. It must be between 0 and 65535.");
    refuseIf(hasBitNumber(item.table, item.type) && item.bit.empty(), found, "bit",
             "Bit number field is empty.");
    if (hasElements(item.type)) {
        refuseIf(item.elements.empty(), found, "elements", "Number of elements field is empty.");
        refuseIf(leadingNumber(item.elements) < 0, found, "elements",
                 "Number of elements field is not valid.");
    }
    refuseIf(item.accessRight.empty(), found, "accessRight", "Access Rights field is empty.");
    return found;
}

std::optional<Refusal> refusal(const ItemFields& item) {
    return first(refusals(item));
}

namespace {

constexpr std::string_view kPortPrefix = "COM";

std::optional<Refusal> identifierRefusal(const std::string& text, OtherUnits others, const clsPLC* edited) {
    const auto refused = [](std::string_view message) { return Refusal{"identifier", std::string(message)}; };
    const auto identifier = wholeNumber(text);
    if (!identifier) return refused("UI identifier is not valid.");
    if (*identifier < 0 || *identifier > kLastIdentifier)
        return refused("UI identifier must be between 0 and 254.");
    // A file may hold the same identifier twice; such a unit may be edited as long as it keeps its own.
    if (edited != nullptr && edited->getUI() == *identifier) return std::nullopt;
    for (const clsPLC* unit : others) {
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
std::optional<Refusal> sharedPortRefusal(const UnitFields& unit, OtherUnits others) {
    for (const clsPLC* other : others) {
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

void addRtuRefusals(std::vector<Refusal>& found, const UnitFields& unit, OtherUnits others) {
    add(found, portRefusal(unit.port));
    if (unit.silent.empty())
        found.push_back({"silent", "Silent interval field empty."});
    else
        refuseIf(!isNumeric(unit.silent), found, "silent", "Invalid Silent interval.");
    add(found, sharedPortRefusal(unit, others));
}

}  // namespace

std::vector<Refusal> refusals(const UnitFields& unit, std::string_view interfaceKind, OtherUnits others,
                              const clsPLC* edited) {
    std::vector<Refusal> found;
    refuseIf(unit.name.empty(), found, "name", "Name field is empty.");
    add(found, identifierRefusal(unit.identifier, others, edited));
    refuseIf(!isNumeric(unit.timeout), found, "timeout", "Timeout value is not valid.");
    refuseIf(interfaceKind == kTcpIp && unit.address.empty(), found, "address", "Address field is empty.");
    if (interfaceKind == kRtu) addRtuRefusals(found, unit, others);
    return found;
}

std::optional<Refusal> refusal(const UnitFields& unit, const Configuration& configuration,
                               const clsPLC* edited) {
    std::vector<const clsPLC*> all;
    for (const auto& [key, other] : configuration.units) all.push_back(other);
    return first(refusals(unit, configuration.state.interfaceKind, all, edited));
}

std::vector<Refusal> refusals(const DataTypeFields& type, const Configuration& configuration, bool edited) {
    std::vector<Refusal> found;
    refuseIf(!edited && configuration.dataTypes.contains(type.name), found, "name",
             "ModBus type already existing");
    refuseIf(!isNumeric(type.readCode), found, "readCode", "Check Read Function code");
    refuseIf(!isReadOnly(type.name) && !isNumeric(type.writeCode), found, "writeCode",
             "Check Write Function code");
    refuseIf(type.single && !isNumeric(type.singleCode), found, "singleCode",
             "Check Single Write Function code");
    return found;
}

std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited) {
    return first(refusals(type, configuration, edited));
}

}  // namespace trevandix
