// The item dialog.
#include <cmath>

#include "ReferenceTexts.h"

namespace trevandix::testing {

namespace {

const Texts kLabels{"boolean",
                    "unsigned 16 bit",
                    "unsigned 32 bit",
                    "signed 16 bit",
                    "signed 32 bit",
                    "32 bit float",
                    "boolean array",
                    "unsigned 8 bit array",
                    "unsigned 16 bit array",
                    "unsigned 32 bit array",
                    "signed 8 bit array",
                    "signed 16 bit array",
                    "signed 32 bit array",
                    "32 bit float array",
                    "string"};

}  // namespace

Reference::Sheet Reference::itemSheet(bool edit) {
    Sheet made = sheet(
        "frmItems", edit,
        {"cmbModbusType", "txtItemName", "txtComment", "txtAddress", "cmbDataType", "cmbAccessRight",
         "cmbBit", "txtElements", "cmdAdd", "cmdGroup", "cmdOk", "cmdCancel", "txtNumbItems", "cmdOkNumber"});
    for (const auto& [name, type] : collections_["datatype"])
        made.boxes["cmbModbusType"].items.push_back(name);
    for (int bit = 0; bit < 16; ++bit) made.boxes["cmbBit"].items.push_back(std::to_string(bit));
    made.text("txtItemName") = "New Item " + std::to_string(counters_["item"]);
    if (!edit) {
        chooseLabel(made);
        return made;
    }
    made.old = record("item", made.oldKey);
    made.boxes["cmdAdd"].on = made.boxes["cmdGroup"].on = false;
    const std::string& type = made.old["type"];
    made.text("txtItemName") = made.old["name"];
    withOwn(made.boxes["cmbModbusType"], type.substr(0, type.find(':')));
    chooseTable(made);
    made.text("cmbDataType") = type.substr(type.find(':') + 1);
    made.text("txtComment") = made.old["comment"];
    made.text("txtAddress") = made.old["address"];
    chooseLabel(made);
    if (takesElements(made.text("cmbDataType"))) made.text("txtElements") = made.old["elements"];
    made.text("cmbAccessRight") = made.old["right"];
    return made;
}

void Reference::chooseTable(Sheet& s) {
    const std::string table = s.text("cmbModbusType");
    const bool registers = table == "holding register" || table == "input register";
    Texts labels{"boolean", "boolean array"};
    Texts rights{"READ"};
    if (registers) labels = kLabels;
    if (table != "input status" && table != "input register") rights = {"READ", "WRITE", "READWRITE"};
    s.boxes["cmbDataType"] = {"", labels};
    s.boxes["cmbAccessRight"] = {"", rights};
}

void Reference::chooseLabel(Sheet& s) {
    const std::string label = s.text("cmbDataType");
    const std::string table = s.text("cmbModbusType");
    Box& bit = s.boxes["cmbBit"];
    bit.on = holds(label, "boolean") && !holds(table, "coil") && !holds(table, "input status");
    if (!bit.on) bit.text = "0";
    if (bit.on && s.edit) bit.text = s.old["bit"];
    Box& elements = s.boxes["txtElements"];
    elements.on = takesElements(label);
    if (!elements.on) elements.text = "0";
}

std::string Reference::wrongItem(Sheet& s) const {
    if (s.text("txtItemName").empty()) return "Item name field is empty.";
    if (s.text("cmbModbusType").empty()) return "ModBus Type field is empty.";
    if (s.text("cmbDataType").empty()) return "Data Type field is empty.";
    const std::string& address = s.text("txtAddress");
    if (address.empty()) return "Memory address field is empty.";
    if (leading(address) < 0 || leading(address) > 65535)
        return "Memory address field is not valid. It must be between 0 and 65535.";
    if (s.boxes.at("cmbBit").on && s.text("cmbBit").empty()) return "Bit number field is empty.";
    const Box& elements = s.boxes.at("txtElements");
    if (elements.on && elements.text.empty()) return "Number of elements field is empty.";
    if (elements.on && leading(elements.text) < 0) return "Number of elements field is not valid.";
    return s.text("cmbAccessRight").empty() ? "Access Rights field is empty." : "";
}

bool Reference::confirmItem(Sheet& s) {
    if (const std::string wrong = wrongItem(s); !wrong.empty()) {
        say(wrong);
        return false;
    }
    const std::string name = s.text("txtItemName");
    const std::string label = s.text("cmbDataType");
    const bool kept = s.edit && name == s.old.at("name");
    if (!kept && nameTaken("item", name, s.edit)) return false;
    const int container = s.edit ? nodes_.at(selected_).parent : selected_;
    const std::string elements =
        takesElements(label) ? whole(leading(s.text("txtElements")), -32768, 32767) : "0";
    if (elements.empty()) throw Failure{6};
    const Record made{{"name", name},
                      {"key", nodes_.at(container).key + "." + name},
                      {"comment", s.text("txtComment")},
                      {"address", whole(leading(s.text("txtAddress")), 0, 65535)},
                      {"bit", holds(label, "boolean") ? s.text("cmbBit") : "0"},
                      {"elements", elements},
                      {"type", s.text("cmbModbusType") + ":" + label},
                      {"right", s.text("cmbAccessRight")}};
    if (s.edit) {
        replace("item", s.oldKey, made);
    } else {
        addWithRecord("item", store(made), container, "item");
        ++counters_["item"];
    }
    saved_ = false;
    return true;
}

void Reference::addAndIncrement(Sheet& s) {
    if (!confirmItem(s)) return;
    const std::string label = s.text("cmbDataType");
    const bool registers = holds(s.text("cmbModbusType"), "register");
    const int elements = static_cast<int>(leading(s.text("txtElements")));
    int address = static_cast<int>(leading(s.text("txtAddress")));
    int bit = static_cast<int>(leading(s.text("cmbBit")));
    if (label == "boolean" && registers) {
        address += bit == 15 ? 1 : 0;
        bit = bit == 15 ? 0 : bit + 1;
    } else if (label == "boolean array" && registers) {
        address += (bit + elements) / 16;
        bit = (bit + elements) % 16;
    } else if (label == "boolean" || label == "unsigned 16 bit" || label == "signed 16 bit") {
        ++address;
    } else if (label == "unsigned 32 bit" || label == "signed 32 bit" || label == "32 bit float") {
        address += 2;
    } else if (holds(label, "8 bit array") || label == "string") {
        address += static_cast<int>(std::nearbyint(elements / 2.0)) + 1;
    } else {
        address += holds(label, "32 bit") ? 2 * elements : elements;
    }
    s.text("txtItemName") = "New_Item_" + std::to_string(counters_["item"]);
    s.text("txtComment") = "";
    s.text("txtAddress") = std::to_string(address);
    s.text("cmbBit") = std::to_string(bit);
}

// Each item that the button adds can be undone by itself.
void Reference::addOne(Sheet& s) {
    const int before = counters_["item"];
    addAndIncrement(s);
    if (counters_["item"] == before) return;
    endStep();
    beginStep();
}

void Reference::addGroup(Sheet& s) {
    const auto count = numberOf(s.text("txtNumbItems"));
    if (!count) return say("Number of items is not valid.");
    const std::string rounded = whole(*count, -32768, 32767);
    if (rounded.empty()) throw Failure{6};
    s.panel = false;
    for (int i = std::stoi(rounded); i > 0; --i) {
        const int before = counters_["item"];
        guarded("cmdAdd_Click", [&] { addAndIncrement(s); });
        if (counters_["item"] == before) break;
    }
    endStep();
    beginStep();
}

}  // namespace trevandix::testing
