// The unit and data type dialogs.
#include <cstdint>
#include <limits>

#include "ReferenceTexts.h"

namespace trevandix::testing {

namespace {

const Texts kTables{"input status", "coil", "input register", "holding register"};

}  // namespace

Reference::Sheet Reference::unitSheet(bool edit) {
    Sheet made = sheet("frmPLC", edit,
                       {"txtName", "txtAddress", "txtUI", "txtTimeout", "txtPort", "cmbBaud", "cmbParity",
                        "cmbData", "cmbStop", "cmbFlow", "txtSilent", "cmdOk", "cmdCancel"});
    auto& boxes = made.boxes;
    boxes["cmbBaud"].items = {"2400", "9600", "19200", "38400", "57600", "115200"};
    boxes["cmbParity"].items = {"NO", "EVEN", "ODD"};
    boxes["cmbData"].items = {"8", "7", "6", "5"};
    boxes["cmbStop"].items = {"1", "2"};
    boxes["cmbFlow"].items = {"NONE", "HARDWARE"};
    const bool rtu = kind_ == "TrevandixRTU";
    Record from{{"name", "New Plc " + std::to_string(counters_["plc"])},
                {"id", "1"},
                {"timeout", "2000"},
                {"address", "192.168.0.1"},
                {"port", "COM1"},
                {"baud", "9600"},
                {"parity", "NO"},
                {"data", "8"},
                {"stop", "1"},
                {"silent", "10"},
                {"flow", "NONE"}};
    if (edit) from = made.old = record("plc", made.oldKey);
    for (const auto& [box, field] : Record{{"txtName", "name"}, {"txtUI", "id"}, {"txtTimeout", "timeout"}})
        boxes[box].text = from[field];
    for (const auto& [box, field] : Record{{"txtPort", "port"},
                                           {"cmbBaud", "baud"},
                                           {"cmbParity", "parity"},
                                           {"cmbData", "data"},
                                           {"cmbStop", "stop"},
                                           {"cmbFlow", "flow"},
                                           {"txtSilent", "silent"}}) {
        boxes[box].on = rtu;
        if (rtu) boxes[box].text = from[field];
    }
    boxes["txtAddress"].on = !rtu;
    if (!rtu) boxes["txtAddress"].text = from["address"];
    return made;
}

/// Returns the message for the first invalid field; empty if all are valid.
std::string Reference::wrongUnit(Sheet& s) const {
    const auto id = numberOf(s.text("txtUI"));
    if (s.text("txtName").empty()) return "Name field is empty.";
    if (!id) return "UI identifier is not valid.";
    if (*id < 0 || *id > 254) return "UI identifier must be between 0 and 254.";
    const auto collection = collections_.find("plc");
    const std::vector<Entry> units =
        collection == collections_.end() ? std::vector<Entry>() : collection->second;
    for (const auto& [key, unit] : units) {
        if (leading(records_.at(unit).at("id")) != *id) continue;
        if (!s.edit || leading(s.old.at("id")) != *id)
            return "UI already existing. Please use a different one";
    }
    if (!numberOf(s.text("txtTimeout"))) return "Timeout value is not valid.";
    if (kind_ != "TrevandixRTU") return s.text("txtAddress").empty() ? "Address field is empty." : "";
    const std::string& port = s.text("txtPort");
    const std::string begins = "Invalid Port name. It must begin with \"COM\"";
    if (port.empty()) return "Port name field empty.";
    if (!port.starts_with("COM")) return begins;
    if (!numberOf(port.substr(3))) return "Invalid Port name. Missing port number.";
    if (s.text("txtSilent").empty()) return "Silent interval field empty.";
    if (!numberOf(s.text("txtSilent"))) return "Invalid Silent interval.";
    for (const auto& [key, unit] : units) {
        const Record& other = records_.at(unit);
        if (other.at("port") != port || other.at("name") == s.text("txtName")) continue;
        const std::string differs = "Plc " + other.at("name") + " has the same port but different ";
        if (leading(other.at("baud")) != leading(s.text("cmbBaud"))) return differs + "Baud Rate";
        if (leading(other.at("data")) != leading(s.text("cmbData"))) return differs + "Data Bits";
        if (leading(other.at("stop")) != leading(s.text("cmbStop"))) return differs + "Stop Bits";
        if (other.at("parity") != s.text("cmbParity")) return differs + "Parity";
        if (other.at("flow") != s.text("cmbFlow")) return differs + "Flow Control";
        return "";
    }
    return "";
}

void Reference::confirmUnit(Sheet& s) {
    if (const std::string wrong = wrongUnit(s); !wrong.empty()) {
        say(wrong);
        s.open = false;
        return;
    }
    if (nameTaken("plc", s.text("txtName"), s.edit)) return;
    const auto number = [&](const std::string& box, double most) {
        const double least = most > 255 ? -most - 1 : 0;
        const std::string text = whole(leading(s.text(box)), least, most);
        if (text.empty()) throw Failure{6};
        return text;
    };
    const double most32 = std::numeric_limits<std::int32_t>::max();
    const bool rtu = kind_ == "TrevandixRTU";
    Record made{{"name", s.text("txtName")},
                {"key", s.text("txtName")},
                {"id", number("txtUI", 255)},
                {"timeout", number("txtTimeout", most32)},
                {"address", rtu ? "" : s.text("txtAddress")},
                {"port", ""},
                {"baud", "0"},
                {"parity", ""},
                {"data", "0"},
                {"stop", "0"},
                {"flow", ""},
                {"silent", "0"}};
    if (rtu) {
        made["port"] = s.text("txtPort");
        made["baud"] = number("cmbBaud", most32);
        made["parity"] = s.text("cmbParity");
        made["data"] = number("cmbData", 255);
        made["stop"] = number("cmbStop", 255);
        made["flow"] = s.text("cmbFlow");
        made["silent"] = number("txtSilent", most32);
    }
    if (s.edit) {
        replace("plc", s.oldKey, made);
    } else {
        put("plc", made["key"], store(made));
        added_ = true;
    }
    saved_ = false;
    s.open = false;
}

Reference::Sheet Reference::typeSheet(bool edit) {
    Sheet made = sheet(
        "frmModBus", edit,
        {"cmbMBType", "txtReadCode", "txtWriteCode", "cmdOk", "cmdCancel", "chkSingle", "txtSingleCode"});
    made.boxes["cmbMBType"].items = kTables;
    made.boxes["txtSingleCode"].on = false;
    if (!edit) return made;
    made.oldKey = nodes_.at(selected_).text;
    withOwn(made.boxes["cmbMBType"], made.oldKey);
    guarded("Form_Load", [&] {
        const Record shown = record("datatype", made.oldKey);
        const bool input = holds(made.oldKey, "input");
        const bool single = !input && shown.at("single") != "0";
        made.text("txtReadCode") = shown.at("read");
        if (!input) made.text("txtWriteCode") = shown.at("write");
        made.boxes["txtWriteCode"].on = made.boxes["chkSingle"].on = !input;
        made.boxes["chkSingle"].checked = made.boxes["txtSingleCode"].on = single;
        if (single) made.text("txtSingleCode") = shown.at("single");
    });
    return made;
}

void Reference::presetType(Sheet& s) {
    const std::map<std::string, Texts> presets{{"input status", {"2"}},
                                               {"coil", {"1", "15", "5"}},
                                               {"input register", {"4"}},
                                               {"holding register", {"3", "16", "6"}}};
    const Texts& preset = presets.at(s.text("cmbMBType"));
    const bool writes = preset.size() > 1;
    s.text("txtReadCode") = preset[0];
    s.text("txtWriteCode") = writes ? preset[1] : "";
    s.text("txtSingleCode") = writes ? preset[2] : "";
    s.boxes["chkSingle"].checked = writes;
    for (const char* box : {"txtWriteCode", "chkSingle", "txtSingleCode"}) s.boxes[box].on = writes;
}

void Reference::confirmType(Sheet& s) {
    const std::string name = s.text("cmbMBType");
    const bool single = s.boxes["chkSingle"].checked;
    if (!s.edit && entry("datatype", name) != nullptr) return say("ModBus type already existing");
    if (!numberOf(s.text("txtReadCode"))) return say("Check Read Function code");
    if (!holds(name, "input") && !numberOf(s.text("txtWriteCode"))) return say("Check Write Function code");
    if (single && !numberOf(s.text("txtSingleCode"))) return say("Check Single Write Function code");
    const auto code = [&](const std::string& box) {
        const std::string text = whole(leading(s.text(box)), 0, 255);
        if (text.empty()) throw Failure{6};
        return text;
    };
    const Record made{{"name", name},
                      {"key", name},
                      {"read", code("txtReadCode")},
                      {"write", holds(name, "input") ? "0" : code("txtWriteCode")},
                      {"single", single ? code("txtSingleCode") : "0"}};
    if (name.empty()) throw Failure{5};
    if (s.edit) drop("datatype", s.oldKey);
    put("datatype", name, store(made));
    added_ = true;
    s.open = false;
}

}  // namespace trevandix::testing
