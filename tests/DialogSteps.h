#pragma once

#include <string>
#include <utility>
#include <vector>

#include "FakePlatform.h"

namespace trevandix::testing {

using Texts = std::vector<std::string>;

/// Runs a command; its dialog gets `script` and is closed afterwards.
inline void runDialog(Workplace& place, std::string_view command, FakeForms::Script script) {
    place.forms.scripts.push_back(std::move(script));
    place.run(command);
}

/// Double-clicks the node with the key; its dialog gets `script`.
inline void editDialog(Workplace& place, std::string_view key, FakeForms::Script script) {
    place.click(key);
    place.forms.scripts.push_back(std::move(script));
    place.editor.TreeView1_DblClick();
}

inline void addUnit(Workplace& place, const std::string& name, const std::string& identifier) {
    place.click("");
    runDialog(place, "mnuAddPlc", [&](FakeForm& form) {
        form.type("txtName", name);
        form.type("txtUI", identifier);
        form.press("cmdOk");
    });
}

inline void addBranch(Workplace& place, std::string_view container, const std::string& name) {
    place.click(container);
    runDialog(place, "mnuAddBranch", [&](FakeForm& form) {
        form.type("txtBranchName", name);
        form.press("cmdOk");
    });
}

inline void addDataType(Workplace& place, const std::string& name) {
    place.click(kModBusFolder);
    runDialog(place, "mnuAddMBType", [&](FakeForm& form) {
        form.choose("cmbMBType", name);
        form.press("cmdOk");
    });
}

/// Fills all fields that an item needs.
inline void fillItem(FakeForm& form, const std::string& name, const std::string& table = "holding register",
                     const std::string& label = "signed 16 bit", const std::string& address = "1") {
    form.type("txtItemName", name);
    form.choose("cmbModbusType", table);
    form.choose("cmbDataType", label);
    form.type("txtAddress", address);
    form.choose("cmbAccessRight", "READ");
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

/// The keys of all nodes below the node with the key, in tree order.
inline Texts keysBelow(Workplace& place, std::string_view key) {
    Texts keys;
    const TreeNode& top = place.node(key);
    for (const TreeNode* n = nextBelow(top, top); n != nullptr; n = nextBelow(*n, top))
        keys.push_back(n->key().str());
    return keys;
}

}  // namespace trevandix::testing
