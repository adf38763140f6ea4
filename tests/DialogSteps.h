#pragma once

#include <string>
#include <utility>
#include <vector>

#include "FakePlatform.h"

namespace trevandix::testing {

inline const Texts kNameTaken{"Name already existing. Please use a different name"};
inline constexpr std::string_view kInvalidCall = "5  Invalid procedure call or argument";
inline constexpr std::string_view kOverflow = "6  Overflow";
inline constexpr std::string_view kKeyInCollection =
    "457  This key is already associated with an element of this collection";
inline constexpr std::string_view kKeyNotUnique = "35602  Key is not unique in collection";

/// The one message of a command that failed.
inline Texts failure(std::string_view error, const std::string& procedure) {
    return {" Error n. " + std::string(error) + " in " + procedure};
}

/// Runs a command; its dialog gets `script` and is closed afterwards.
inline void runDialog(Workplace& place, std::string_view command, FakeForms::Script script) {
    place.forms.scripts.push_back(std::move(script));
    place.run(command);
}

/// Runs a command; its dialog gets the fields and Ok.
inline void confirmDialog(Workplace& place, std::string_view command, const std::string& fields) {
    runDialog(place, command, [&](FakeForm& form) { form.fill(fields + "|cmdOk"); });
}

inline void addUnit(Workplace& place, const std::string& name, const std::string& identifier) {
    place.click("");
    confirmDialog(place, "mnuAddPlc", "txtName=" + name + "|txtUI=" + identifier);
}

inline void addBranch(Workplace& place, std::string_view container, const std::string& name) {
    place.click(container);
    confirmDialog(place, "mnuAddBranch", "txtBranchName=" + name);
}

inline void addDataType(Workplace& place, const std::string& name) {
    place.click(kModBusFolder);
    confirmDialog(place, "mnuAddMBType", "cmbMBType=" + name);
}

/// Fills all fields that an item needs.
inline void fillItem(FakeForm& form, const std::string& name, const std::string& table = "holding register",
                     const std::string& label = "signed 16 bit", const std::string& address = "1") {
    form.fill("txtItemName=" + name + "|cmbModbusType=" + table + "|cmbDataType=" + label +
              "|txtAddress=" + address + "|cmbAccessRight=READ");
}

inline void addItem(Workplace& place, std::string_view container, const std::string& name) {
    place.click(container);
    runDialog(place, "mnuAddItem", [&](FakeForm& form) {
        fillItem(form, name);
        form.press("cmdOk");
    });
}

/// A configuration with all four standard data types.
inline void startPlant(Workplace& place, std::string_view interfaceKind = kTcpIp) {
    place.newConfiguration(interfaceKind);
    for (const char* name : {"input status", "coil", "input register", "holding register"})
        addDataType(place, name);
}

}  // namespace trevandix::testing
