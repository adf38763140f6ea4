#include <algorithm>
#include <array>
#include <deque>
#include <span>
#include <unordered_map>

#include "check/Families.h"
#include "check/HostNames.h"
#include "check/NameNumbers.h"
#include "check/Wording.h"
#include "model/UnitChoices.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr int kStepsPerUnit = 50;
constexpr int kLastOnALine = 247;  // the rest is reserved

struct LineSetting {
    std::string_view name;
    std::string UnitFields::*text;
    std::span<const std::string_view> choices;
};
constexpr std::array kLineSettings{
    LineSetting{"baud rate", &UnitFields::baud, kBaudRates},
    LineSetting{"data bits", &UnitFields::dataBits, kDataBits},
    LineSetting{"stop bits", &UnitFields::stopBits, kStopBits},
    LineSetting{"parity", &UnitFields::parity, kParities},
    LineSetting{"flow control", &UnitFields::flowControl, kFlowControls},
};

template <typename Look>
void eachUnit(Search& search, Look look) {
    search.each(NodeTag::Plc, [&](const Object& object) { look(search.survey.unitOf(object), *object.key); });
}

// Where the unit is reached, whatever the capitals.
std::string placeOf(const Survey& survey, const clsPLC& unit) {
    return upperCased(trimmed(survey.tcpIp() ? unit.getAddress() : unit.getCom()));
}

bool isPortName(std::string_view name) {
    constexpr std::string_view kPrefix = "COM";
    if (!name.starts_with(kPrefix)) return false;
    name.remove_prefix(kPrefix.size());
    return !name.empty() && name.front() != '0' && isDecimal(name);
}

std::string joined(std::span<const std::string_view> choices) {
    std::string all;
    for (const std::string_view choice : choices) (all += all.empty() ? "" : ", ") += choice;
    return all;
}

}  // namespace

void findSameIdentifiers(Search& search) {
    const Survey& survey = search.survey;
    NameNumbers<Exactly> numbers(16);
    std::deque<std::string> texts;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> units;  // place in `objects`, number
    for (std::uint32_t place = 0; place < survey.objects.size(); ++place) {
        search.pulse.step();
        if (survey.objects[place].tag != NodeTag::Plc) continue;
        search.pulse.step(kStepsPerUnit);
        const clsPLC& unit = survey.unitOf(survey.objects[place]);
        const std::string& text = texts.emplace_back(placeOf(survey, unit));
        if (!text.empty()) units.emplace_back(place, numbers.number(unit.getUI(), text));
    }
    Sharers sharers(numbers.size());
    for (const auto& [place, number] : units) sharers.add(number, place);
    for (const auto& [place, number] : units) {
        search.pulse.step();
        const std::size_t count = sharers.count(number);
        if (count < 2) continue;
        const Object& object = survey.objects[place];
        const Object& other = survey.objects[sharers.partner(number, place)];
        search.found(*object.key, "identifier " + std::to_string(survey.unitOf(object).getUI()) + " at " +
                                      quoted(placeOf(survey, survey.unitOf(object))) + " is also that of " +
                                      shownKey(*other.key) + andMore(count - 2) +
                                      "; give each device an identifier of its own");
    }
}

void findLineSettings(Search& search) {
    if (search.survey.tcpIp()) return;
    struct First {
        const Key* key;
        UnitFields fields;
    };
    std::unordered_map<std::string, First> lines;
    eachUnit(search, [&](const clsPLC& unit, const Key& key) {
        UnitFields fields = unit.texts(kRtu);
        const auto [line, isFirst] = lines.try_emplace(placeOf(search.survey, unit), First{&key, fields});
        if (isFirst) return;
        for (const LineSetting& setting : kLineSettings) {
            const std::string& wanted = line->second.fields.*setting.text;
            if (fields.*setting.text == wanted) continue;
            search.found(key, std::string(setting.name) + " " + quoted(fields.*setting.text) + ", but " +
                                  shownKey(*line->second.key) + " on the same port has " + quoted(wanted) +
                                  "; give all units on a port the same settings");
            return;
        }
    });
}

void findIpAddresses(Search& search) {
    if (!search.survey.tcpIp()) return;
    eachUnit(search, [&](const clsPLC& unit, const Key& key) {
        if (isIpAddress(unit.getAddress()) || isHostName(unit.getAddress())) return;
        search.found(key, "IP address " + quoted(unit.getAddress()) +
                              " is neither an address nor a host name; enter one like 192.168.0.10");
    });
}

void findPortNames(Search& search) {
    if (search.survey.tcpIp()) return;
    eachUnit(search, [&](const clsPLC& unit, const Key& key) {
        if (isPortName(unit.getCom())) return;
        search.found(key, "port name " + quoted(unit.getCom()) + " is no port; enter one like COM1");
    });
}

void findUnitValues(Search& search) {
    if (search.survey.tcpIp()) return;
    eachUnit(search, [&](const clsPLC& unit, const Key& key) {
        const UnitFields fields = unit.texts(kRtu);
        for (const LineSetting& setting : kLineSettings) {
            if (std::ranges::find(setting.choices, fields.*setting.text) != setting.choices.end()) continue;
            search.found(key, std::string(setting.name) + " " + quoted(fields.*setting.text) +
                                  " is not one of " + joined(setting.choices) + "; choose one of them");
            return;
        }
    });
}

void findFunctionCodes(Search& search) {
    search.each(NodeTag::DataType, [&](const Object& object) {
        const ModbusTable* table = tableOf(object.name);
        if (table == nullptr) return;
        const clsModBusType& type = *search.survey.configuration.dataTypes.at(*object.key);
        const auto tell = [&](std::string_view kind, int code, int usual) {
            const std::string wanted =
                usual == 0 ? "which has none; enter 0" : std::to_string(usual) + "; enter it";
            search.found(*object.key, std::string(kind) + " code " + std::to_string(code) +
                                          " is not that of the table, " + wanted +
                                          " unless the device is special");
        };
        const int write = type.getWriteCode();
        const int single = type.getSingleWrCode();
        if (type.getReadCode() != table->readCode)
            tell("read", type.getReadCode(), table->readCode);
        else if (write != 0 && write != table->writeCode)
            tell("write", write, table->writeCode);
        else if (single != 0 && single != table->singleWrCode)
            tell("single write", single, table->singleWrCode);
    });
}

void findIdentifiers(Search& search) {
    const bool line = !search.survey.tcpIp();
    eachUnit(search, [&](const clsPLC& unit, const Key& key) {
        const int identifier = unit.getUI();
        if (line ? identifier != 0 && identifier <= kLastOnALine : identifier <= kLastIdentifier) return;
        const std::string_view why = identifier == 0 ? "is for messages to all devices, which none answers"
                                     : line          ? "is reserved on a serial line"
                                                     : "is not one that the dialog takes";
        search.found(key, "identifier " + std::to_string(identifier) + " " + std::string(why) +
                              "; use one from 1 to " + std::to_string(line ? kLastOnALine : kLastIdentifier));
    });
}

void findTimeouts(Search& search) {
    const bool line = !search.survey.tcpIp();
    eachUnit(search, [&](const clsPLC& unit, const Key& key) {
        if (unit.getTimeout() <= 0) {
            search.found(key, "timeout " + std::to_string(unit.getTimeout()) +
                                  " ms leaves the device no time to answer; enter some hundred");
        } else if (line && unit.getSilent() < 0) {
            search.found(key, "silent interval " + std::to_string(unit.getSilent()) +
                                  " ms is negative; enter 0 or more");
        }
    });
}

}  // namespace trevandix
