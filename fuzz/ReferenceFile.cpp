// New, Open, Save and Close, and the files.
#include <algorithm>
#include <cctype>
#include <functional>

#include "Reference.h"

namespace trevandix::testing {

namespace {

const std::map<std::string, std::string> kTableWords{{"input status", "INPUTSTATUS"},
                                                     {"coil", "COIL"},
                                                     {"input register", "IREGISTER"},
                                                     {"holding register", "HREGISTER"}};
const std::map<std::string, std::string> kTypeWords{{"boolean", "VT_BOOL"},
                                                    {"unsigned 16 bit", "VT_UI2"},
                                                    {"unsigned 32 bit", "VT_UI4"},
                                                    {"signed 16 bit", "VT_I2"},
                                                    {"signed 32 bit", "VT_I4"},
                                                    {"32 bit float", "VT_R4"},
                                                    {"boolean array", "VT_BOOL ARRAY"},
                                                    {"unsigned 8 bit array", "VT_UI1 ARRAY"},
                                                    {"unsigned 16 bit array", "VT_UI2 ARRAY"},
                                                    {"unsigned 32 bit array", "VT_UI4 ARRAY"},
                                                    {"signed 8 bit array", "VT_I1 ARRAY"},
                                                    {"signed 16 bit array", "VT_I2 ARRAY"},
                                                    {"signed 32 bit array", "VT_I4 ARRAY"},
                                                    {"32 bit float array", "VT_R4 ARRAY"},
                                                    {"string", "VT_BSTR"}};
const std::vector<std::pair<std::string, std::string>> kRtuFields{
    {"name", "name"},       {"id", "id"},         {"com", "port"},      {"baudrate", "baud"},
    {"parity", "parity"},   {"stopbits", "stop"}, {"databits", "data"}, {"flowcontrol", "flow"},
    {"timeout", "timeout"}, {"silent", "silent"}};

std::string behind(const std::string& text, char mark) {
    return text.substr(text.find(mark) + 1);
}

std::string wordOf(const std::string& type) {
    return kTableWords.at(type.substr(0, type.find(':'))) + " " + kTypeWords.at(behind(type, ':'));
}

std::string labelOf(const std::map<std::string, std::string>& words, const std::string& word) {
    return std::ranges::find(words, word, [](const auto& pair) { return pair.second; })->first;
}

/// True if no parser can take any part of the text for markup.
bool isPlain(const std::string& text, const std::string& besides) {
    return std::ranges::all_of(text, [&](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || besides.find(c) != std::string::npos;
    });
}

std::string element(int depth, const std::string& name, const std::string& text) {
    return std::string(static_cast<std::size_t>(depth), '\t') + "<" + name + ">" + text + "</" + name +
           ">\r\n";
}

}  // namespace

// --- commands

void Reference::initObjects() {
    treeVisible_ = listVisible_ = false;
    nodes_.clear();
    root_ = selected_ = highlight_ = 0;
    subject_.reset();
    columns_.clear();
    rows_.clear();
    selectedRows_.clear();
    buffer_ = {-1};
    pasteCounter_ = 1;
    done_.clear();
    undone_.clear();
    seen_.clear();
}

void Reference::buildRoot() {
    root_ = add(0, "", path_, "config", "config", "");
    selected_ = root_;
    makeVisible(add(root_, "ModBus", "ModBus", "modbus", "main", ""));
}

/// Returns 'q' to end the command, 'a' if the question was answered, '-' if it was not asked.
char Reference::askToSave(const std::string& question, const std::string& choice) {
    if (!open_ || saved_) return '-';
    if (ask(question) != 'y') return 'a';
    guarded("mnuSaveCfg_Click", [&] { save(choice); });
    return saved_ ? 'a' : 'q';
}

void Reference::newConfiguration(const std::string& choice, const Texts& entries) {
    const char asked = askToSave("Do you want to save active configuration?", choice);
    if (asked == 'q') return;
    if (asked == 'a') open_ = false;
    initObjects();
    log_.emplace_back("opens frmSelect");
    if (std::ranges::count(entries, "cmdOk") > 0)
        kind_ = std::ranges::count(entries, "optRTU") > 0 ? "TrevandixRTU" : "TrevandixTcpIp";
    path_ = folder_ + kind_ + ".xml";
    open_ = true;
    saved_ = panelVisible_ = false;
    buildRoot();
    treeVisible_ = listVisible_ = true;
    listSorted_ = false;
    enable("new");
    collections_.clear();
    counters_.clear();
    focus_ = "tree";
    beginStep();
    savedMark_ = -1;
}

void Reference::open(const std::string& path) {
    if (askToSave("Do you want to save active configuration?", path) == 'q' || path.empty()) return;
    open_ = false;
    initObjects();
    collections_.clear();
    counters_.clear();
    path_ = path;
    buildRoot();
    panelVisible_ = true;
    enable("start");
    const int before = static_cast<int>(log_.size());
    guarded("ImportXML", [&] { read(files_.at(path)); });
    beginStep();
    if (static_cast<int>(log_.size()) > before) return;
    panelVisible_ = false;
    for (const char* tag : {"plc", "branch", "item", "datatype"})
        counters_[tag] = static_cast<int>(collections_[tag].size()) + 1;
    open_ = saved_ = treeVisible_ = listVisible_ = true;
    listSorted_ = false;
    focus_ = "none";
    select(root_);
    enable("new");
    focus_ = "tree";
    savedMark_ = mark_;
}

void Reference::save(const std::string& choice) {
    if (!open_) return;
    const char answer = files_.contains(path_) ? ask("File " + path_ + " already existing. Overwrite?") : 'y';
    if (answer == 'y' && write()) say(path_ + " saved");
    if (answer == 'n') saveAs(choice);
}

void Reference::saveAs(const std::string& choice) {
    if (!open_ || choice.empty()) return;
    path_ = nodes_.at(root_).text = choice;
    write();
}

bool Reference::write() {
    bool plain = true;
    try {
        files_[path_] = written(plain);
    } catch (const Failure& failure) {
        guarded("CreateXML", [&] { throw failure; });
        files_[path_].clear();
        doubtful_.insert(path_);
        savedMark_ = -1;
        return saved_ = false;
    }
    doubtful_.erase(path_);
    if (!plain) doubtful_.insert(path_);
    wrote_ = kind_ + " " + path_ + " " + files_[path_];
    savedMark_ = mark_;
    return saved_ = true;
}

void Reference::close(const std::string& choice) {
    const char asked = askToSave("Do you want to save this configuration?", choice);
    if (asked == 'q') return;
    if (asked == 'a') open_ = false;
    initObjects();
    enable("start");
    for (const char* tag : {"item", "plc", "branch"}) collections_[tag].clear();
    beginStep();
}

// --- writing

Reference::Texts Reference::content() {
    bool plain = true;
    try {
        Texts lines = pieces(written(plain), "\r\n");
        std::ranges::sort(lines);
        return lines;
    } catch (const Failure&) {
        return {};
    }
}

std::string Reference::written(bool& plain) {
    const bool rtu = kind_ == "TrevandixRTU";
    const std::string top = rtu ? "VOSKModBusRTUCfg" : "VOSKModBusTcpIpCfg";
    std::string out = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<" + top + ">\r\n\t<MODBUS>\r\n";
    for (const auto& [key, id] : collections_["datatype"]) {
        Record& type = records_[id];
        out += "\t\t<DATATYPE name=\"" + kTableWords.at(type["name"]) + "\" readcode = \"" + type["read"] +
               "\" writecode=\"" + type["write"] + "\" singlewrcode=\"" + type["single"] + "\"/>\r\n";
    }
    out += "\t</MODBUS>\r\n\t<OPC_DA>\r\n";
    for (const auto& [key, id] : collections_["plc"]) {
        Record& unit = records_[id];
        plain = plain && isPlain(unit["name"] + unit["address"] + unit["port"], "._- ");
        if (rtu) {
            out += "\t\t<PLC>\r\n";
            for (const auto& [name, field] : kRtuFields) out += element(3, name, unit[field]);
        } else {
            out += "\t\t<PLC name=\"" + unit["name"] + "\" address = \"" + unit["address"] + "\" id=\"" +
                   unit["id"] + "\" timeout=\"" + unit["timeout"] + "\">\r\n";
        }
        out += "\t\t\t<tags>\r\n";
        writeBelow(at(unit["name"]), 4, out, plain);
        out += "\t\t\t</tags>\r\n\t\t</PLC>\r\n";
    }
    return out + "\t</OPC_DA>\r\n</" + top + ">\r\n";
}

void Reference::writeBelow(int id, int depth, std::string& out, bool& plain) {
    const std::string tabs(static_cast<std::size_t>(depth), '\t');
    for (const int child : nodes_.at(id).children) {
        const Node& each = nodes_.at(child);
        if (each.tag != "item") {
            const bool name =
                !each.text.empty() && std::isalpha(static_cast<unsigned char>(each.text[0])) != 0;
            const bool tag = each.text.size() == 3 && std::toupper(each.text[0]) == 'T' &&
                             std::toupper(each.text[1]) == 'A' && std::toupper(each.text[2]) == 'G';
            plain = plain && name && !tag && isPlain(each.text, "._-");
            out += tabs + "<" + each.text + ">\r\n";
            writeBelow(child, depth + 1, out, plain);
            out += tabs + "</" + each.text + ">\r\n";
            continue;
        }
        Record& item = record("item", each.key);
        const std::string word = wordOf(item["type"]);
        plain = plain && !item["name"].empty() && isPlain(item["name"] + item["comment"], "._- ");
        out += tabs + "<tag>\r\n" + element(depth + 1, "name", item["name"]) +
               element(depth + 1, "comment", item["comment"]) +
               element(depth + 1, "address", item["address"]) + element(depth + 1, "datatype", word) +
               element(depth + 1, "accessrights", item["right"]);
        if (word.find("VT_BOOL") != std::string::npos) out += element(depth + 1, "databit", item["bit"]);
        if (word.find("ARRAY") != std::string::npos || word.find("VT_BSTR") != std::string::npos)
            out += element(depth + 1, "elements", item["elements"]);
        out += tabs + "</tag>\r\n";
    }
}

// --- reading

void Reference::read(const std::string& bytes) {
    std::vector<int> holders;  // open units and branches
    Record fields;             // of the open unit or item
    const auto text = [](const std::string& line, const std::string& before) {
        const std::size_t from = line.find(before) + before.size();
        return line.substr(from, line.find('"', from) - from);
    };
    const auto addUnit = [&] {
        Record unit{{"name", ""},  {"address", ""}, {"id", "0"},    {"timeout", "0"},
                    {"port", ""},  {"baud", "0"},   {"parity", ""}, {"data", "0"},
                    {"stop", "0"}, {"flow", ""},    {"silent", "0"}};
        for (const auto& [name, field] : kRtuFields)
            if (fields.contains(name)) unit[field] = fields[name];
        if (fields.contains("address")) unit["address"] = fields["address"];
        unit["key"] = unit["name"];
        holders.push_back(addWithRecord("plc", store(unit), root_, "plc"));
    };
    const auto addItem = [&] {
        const std::string& word = fields["datatype"];
        Record item{{"name", fields["name"]},
                    {"comment", fields["comment"]},
                    {"address", fields["address"]},
                    {"bit", fields.contains("databit") ? fields["databit"] : "0"},
                    {"elements", fields.contains("elements") ? fields["elements"] : "0"},
                    {"type", labelOf(kTableWords, word.substr(0, word.find(' '))) + ":" +
                                 labelOf(kTypeWords, behind(word, ' '))},
                    {"right", fields["accessrights"]},
                    {"key", nodes_.at(holders.back()).key + "." + fields["name"]}};
        addWithRecord("item", store(item), holders.back(), "item");
    };
    std::string procedure = "ImportXML";
    try {
        for (std::string line : pieces(bytes, "\r\n")) {
            if (line.empty()) continue;
            const std::size_t depth = line.find_first_not_of('\t');
            line.erase(0, depth);
            const std::string name = line.substr(1, line.find_first_of(" >", 1) - 1);
            if (line.starts_with("<VOSK"))
                kind_ = name == "VOSKModBusRTUCfg" ? "TrevandixRTU" : "TrevandixTcpIp";
            if (depth < 2 || (depth == 2 && name == "/PLC")) continue;
            if (name == "DATATYPE" && depth == 2) {
                const std::string table = labelOf(kTableWords, text(line, "name=\""));
                const Record type{{"name", table},
                                  {"key", table},
                                  {"read", text(line, "readcode = \"")},
                                  {"write", text(line, "\" writecode=\"")},
                                  {"single", text(line, "singlewrcode=\"")}};
                addWithRecord("datatype", store(type), at("ModBus"), "");
            } else if (name == "PLC" && depth == 2) {
                procedure = "BrowsePlc";
                fields.clear();
                if (line == "<PLC>") continue;
                for (const std::string field : {"name=\"", "id=\"", "timeout=\""})
                    fields[field.substr(0, field.size() - 2)] = text(line, field);
                fields["address"] = text(line, "address = \"");
            } else if (name == "tags" && depth == 3) {
                addUnit();
                procedure = "BrowseBranch";
            } else if (name == "tag") {
                fields.clear();
            } else if (name == "/tag") {
                addItem();
            } else if (line.find("</") != std::string::npos && line.find("</") > 0) {
                fields[name] = line.substr(line.find('>') + 1, line.rfind("</") - line.find('>') - 1);
            } else if (name.starts_with("/")) {
                holders.pop_back();
            } else {
                std::string capitals = name;
                for (char& c : capitals) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
                const std::string key = nodes_.at(holders.back()).key + "." + capitals;
                holders.push_back(addWithRecord("branch", store({{"name", capitals}, {"key", key}}),
                                                holders.back(), "branch"));
            }
        }
    } catch (Failure& failure) {
        failure.procedure = procedure;
        throw;
    }
}

}  // namespace trevandix::testing
