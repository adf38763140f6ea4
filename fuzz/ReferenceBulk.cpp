// Many items changed at once, and copies of branches and units.
#include <algorithm>

#include "ReferenceTexts.h"

namespace trevandix::testing {

namespace {

const std::string kDifferent = "(different)";
const std::map<std::string, std::string> kBoxes{{"cmbModbusType", "table"},
                                                {"cmbDataType", "label"},
                                                {"txtElements", "elements"},
                                                {"cmbAccessRight", "right"},
                                                {"txtComment", "comment"}};

bool bitwise(const std::string& label) {
    return begins(label, "boolean");
}
bool hasBit(const std::string& table, const std::string& label) {
    return bitwise(label) && !holds(table, "coil") && !holds(table, "input status");
}

std::string replaced(const std::string& text, const std::string& find, const std::string& by,
                     bool matchCase) {
    std::string made;
    for (std::size_t at = 0; at < text.size();) {
        const std::string here = text.substr(at, find.size());
        const bool found = matchCase ? here == find : capitals(here) == capitals(find);
        made += found && !find.empty() ? by : text.substr(at, 1);
        at += found && !find.empty() ? find.size() : 1;
    }
    return made;
}

std::string nameBehind(const std::string& name, int steps) {
    const std::size_t digits = name.size() - (name.find_last_not_of("0123456789") + 1);
    if (steps == 0) return name;
    if (digits == 0) return name + std::to_string(steps + 1);
    const std::string stem = name.substr(0, name.size() - digits);
    const std::string number = std::to_string(std::stoi(name.substr(stem.size())) + steps);
    return stem + std::string(digits - std::min(digits, number.size()), '0') + number;
}

std::string branchFault(const std::string& name) {
    if (name.empty()) return "New branch name is empty";
    if (name.front() == ' ' || name.back() == ' ') return "New branch name has a blank at its end";
    for (const char& c : name) {
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
        const bool part = letter || (c >= '0' && c <= '9') || c == '-' || c == '.';
        if (!letter && &c == name.data()) return std::string("New branch name begins with \"") + c + "\"";
        if (!part) return std::string("New branch name holds \"") + c + "\"";
    }
    return capitals(name) == "TAG" ? "New branch name is the name of items" : "";
}

}  // namespace

// Texts as the item dialog has them.
Reference::Record Reference::itemTexts(const Record& item) const {
    Record texts = item;
    const std::string& type = item.at("type");
    texts["table"] = type.substr(0, type.find(':'));
    const std::string& label = texts["label"] = type.substr(type.find(':') + 1);
    if (!bitwise(label)) texts["bit"] = "";
    if (!takesElements(label)) texts["elements"] = "";
    return texts;
}

// 0 outside the units that a file would hold.
int Reference::unitAround(int id) const {
    while (id != root_ && nodes_.at(id).parent != root_) id = nodes_.at(id).parent;
    return nodes_.at(id).tag == "plc" && entry("plc", nodes_.at(id).key) != nullptr ? id : 0;
}

std::vector<int> Reference::chosen() const {
    std::vector<int> ids;
    for (const std::size_t row : selectedRows_)
        if (open_ && focus_ == "list" && find(rows_[row].key) != 0) ids.push_back(find(rows_[row].key));
    if (open_ && ids.empty() && selected_ != 0) ids.push_back(selected_);
    return ids;
}

void Reference::changeItems(const Texts& entries) {
    intended_.clear();
    bulk_.clear();
    for (const int top : chosen())
        for (const int id : subtree(top))
            if (nodes_.at(id).tag == "item" && std::ranges::count(bulk_, id) == 0) bulk_.push_back(id);
    if (bulk_.empty()) return;
    Sheet s =
        sheet("frmChangeItems", false,
              {"cmbModbusType", "cmbDataType", "txtElements", "cmbAccessRight", "txtComment", "txtMove",
               "txtStart", "cmbBit", "cmbWhere", "txtFind", "txtReplace", "chkCase", "cmdOk", "cmdCancel"});
    for (const int id : bulk_) {
        if (entry("item", nodes_.at(id).key) == nullptr) continue;
        const Record texts = itemTexts(record("item", nodes_.at(id).key));
        for (const auto& [box, field] : kBoxes)
            if (!s.old.try_emplace(field, texts.at(field)).second && s.old[field] != texts.at(field))
                s.old[field] = kDifferent;
    }
    Box& tables = s.boxes["cmbModbusType"];
    if (s.old["table"] == kDifferent) tables.items.push_back(kDifferent);
    for (const auto& [name, type] : collections_["datatype"]) tables.items.push_back(name);
    if (!s.old["table"].empty()) withOwn(tables, s.old["table"]);
    s.boxes["cmbWhere"] = {"Names", {"Names", "Comments"}};
    for (int bit = 0; bit < 16; ++bit) s.boxes["cmbBit"].items.push_back(std::to_string(bit));
    s.text("cmbBit") = "0";
    s.text("cmbDataType") = s.old["label"];
    s.text("cmbAccessRight") = s.old["right"];
    s.text("txtElements") = s.old["elements"];
    s.text("txtComment") = s.old["comment"];
    offerValues(s);
    work(s, entries);
    if (preview(entries, "item", " to change")) applyChanges();
}

void Reference::offerValues(Sheet& s) {
    const std::string table = s.text("cmbModbusType");
    Sheet single = s;
    chooseTable(single);
    if (table == kDifferent) single.text("cmbModbusType") = "holding register";
    if (table == kDifferent) chooseTable(single);
    for (const std::string box : {"cmbDataType", "cmbAccessRight"}) {
        const std::string own = s.old[kBoxes.at(box)];
        Texts items = single.boxes[box].items;
        if (own == kDifferent) items.insert(items.begin(), own);
        const bool stored = table == s.old["table"] && !own.empty();
        if (stored && std::ranges::count(items, own) == 0) items.push_back(own);
        s.boxes[box].items = items;
        if (std::ranges::count(items, s.text(box)) == 0) s.text(box) = "";
    }
    chooseLabelOfMany(s);
}

void Reference::chooseLabelOfMany(Sheet& s) {
    const std::string& label = s.text("cmbDataType");
    s.boxes["txtElements"].on = takesElements(label) || label == kDifferent;
}

void Reference::intendChanges(Sheet& s) {
    const std::string move = s.text("txtMove"), start = s.text("txtStart");
    if (s.text("cmbDataType").empty()) return say("Data Type field is empty.");
    if (s.text("cmbAccessRight").empty()) return say("Access Rights field is empty.");
    if ((!move.empty() && !numberOf(move)) || (!start.empty() && !numberOf(start)))
        return say("The address is not a number.");
    if (!move.empty() && !start.empty()) return say("Addresses are either moved or numbered anew.");
    std::map<std::pair<int, std::string>, std::pair<int, int>> next;  // by unit and table: address and bit
    for (const int id : bulk_) {
        if (entry("item", nodes_.at(id).key) == nullptr) continue;
        const Record old = record("item", nodes_.at(id).key);
        const Record before = itemTexts(old);
        Record fields = before;
        for (const auto& [box, field] : kBoxes)
            if (s.boxes[box].on && s.text(box) != s.old[field]) fields[field] = s.text(box);
        if (!move.empty()) fields["address"] = std::to_string(std::stoi(old.at("address")) + std::stoi(move));
        if (!start.empty()) {
            const int unit = unitAround(id);
            auto& place =
                next.try_emplace({unit, fields["table"]}, std::stoi(start), std::stoi(s.text("cmbBit")))
                    .first->second;
            number(fields, place);
        }
        const std::string where = s.text("cmbWhere") == "Names" ? "name" : "comment";
        fields[where] =
            replaced(fields[where], s.text("txtFind"), s.text("txtReplace"), s.boxes["chkCase"].checked);
        intendChange(id, old, before, fields, s.text("txtElements") != s.old["elements"]);
    }
    refuseTakenNames();
    if (intended_.empty()) return say("Nothing would change.");
    s.open = false;
}

void Reference::number(Record& fields, std::pair<int, int>& place) {
    auto& [address, bit] = place;
    const std::string& table = fields["table"];
    const std::string& label = fields["label"];
    const bool registers = holds(table, "register");
    if (!hasBit(table, label) && registers && bit > 0) {
        ++address;
        bit = 0;
    }
    fields["address"] = std::to_string(address);
    if (hasBit(table, label)) fields["bit"] = std::to_string(bit);
    if (address > 65535) return;
    const int count =
        takesElements(label) ? std::clamp(static_cast<int>(leading(fields["elements"])), 0, 32767) : 1;
    if (bitwise(label)) {
        address += registers ? (bit + count) / 16 : count;
        bit = registers ? (bit + count) % 16 : bit;
    } else if (holds(label, "8 bit array") || label == "string") {
        address += static_cast<int>(std::nearbyint(count / 2.0)) + 1;
    } else {
        address += holds(label, "32 bit") ? 2 * count : count;
    }
}

// What an item would become, and whether its dialog would refuse that.
void Reference::intendChange(int id, const Record& old, const Record& before, Record fields,
                             bool elementsGiven) {
    const std::string table = fields["table"], label = fields["label"];
    const bool otherType = table != before.at("table") || label != before.at("label");
    if (!hasBit(table, label)) fields["bit"] = otherType ? "0" : before.at("bit");
    if (hasBit(table, label) && fields["bit"].empty()) fields["bit"] = "0";
    if (takesElements(label) && fields["elements"].empty() && !elementsGiven) fields["elements"] = "0";
    Record made = old;
    made["name"] = fields["name"];
    made["comment"] = fields["comment"];
    made["right"] = fields["right"];
    made["address"] = whole(leading(fields["address"]), -2147483648.0, 2147483647.0);
    if (otherType) made["bit"] = made["elements"] = "0";
    if (otherType) made["type"] = table + ":" + label;
    if (bitwise(label)) made["bit"] = whole(leading(fields["bit"]), -32768, 32767);
    if (takesElements(label)) made["elements"] = whole(leading(fields["elements"]), -32768, 32767);
    const bool failed = made["address"].empty() || made["bit"].empty() || made["elements"].empty();
    const Record after = failed ? fields : itemTexts(made);
    std::set<std::string> changed;
    for (const char* each : {"name", "comment", "table", "address", "bit", "label", "elements", "right"})
        if (after.at(each) != before.at(each)) changed.insert(each);
    if (changed.empty()) return;
    if (changed.contains("label")) changed.insert("elements");
    if (changed.contains("table")) changed.insert({"label", "right"});
    const auto judged = [&](const char* field) { return changed.contains(field); };
    const auto lacks = [](const Texts& texts, const std::string& text) {
        return std::ranges::count(texts, text) == 0;
    };
    Sheet offers = sheet("", false, {"cmbModbusType", "cmbDataType", "cmbAccessRight"});
    offers.text("cmbModbusType") = table;
    chooseTable(offers);
    const std::string& name = fields["name"];
    const double address = leading(fields["address"]);
    const bool odd = name.empty() || std::ranges::any_of(name, [](char c) {
                         return std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '-' && c != '_';
                     });
    const bool refused = failed || (judged("name") && odd) ||
                         (judged("address") && (address < 0 || address > 65535)) ||
                         (judged("elements") && takesElements(label) &&
                          (fields["elements"].empty() || leading(fields["elements"]) < 0)) ||
                         (judged("table") && entry("datatype", table) == nullptr) ||
                         (judged("label") && lacks(offers.boxes["cmbDataType"].items, label)) ||
                         (judged("right") && lacks(offers.boxes["cmbAccessRight"].items, fields["right"]));
    made["key"] = nodes_.at(nodes_.at(id).parent).key + "." + name;
    intended_.push_back({made, "item", id, refused});
}

// An item that keeps its name may keep another one from getting it.
void Reference::refuseTakenNames() {
    const auto takes = [&](const Intended& each) {
        return !each.refused && nodes_.at(each.node).key != each.record.at("key");
    };
    const auto taken = [&](std::size_t i) {
        const std::string& key = intended_[i].record.at("key");
        for (std::size_t j = 0; j < i; ++j)
            if (takes(intended_[j]) && intended_[j].record.at("key") == key) return true;
        const int holder = find(key);
        if (holder == 0) return entry("item", key) != nullptr || entry("branch", key) != nullptr;
        return std::ranges::none_of(intended_,
                                    [&](const Intended& each) { return each.node == holder && takes(each); });
    };
    for (std::size_t i = 0; i < intended_.size();) {
        if (!takes(intended_[i]) || !taken(i)) {
            ++i;
            continue;
        }
        intended_[i].refused = true;
        i = 0;
    }
}

// True when the user confirms what can be done.
bool Reference::preview(const Texts& entries, const std::string& one, const std::string& what) {
    if (intended_.empty()) return false;
    const auto refused = std::ranges::count_if(intended_, &Intended::refused);
    const auto accepted = std::ssize(intended_) - refused;
    const auto counted = [&](std::ptrdiff_t number) {
        return std::to_string(number) + " " + one + (number == 1 ? "" : "s");
    };
    std::string text = accepted > 0 ? counted(accepted) + what : "";
    if (refused > 0) text += (accepted > 0 ? ", " + std::to_string(refused) : counted(refused)) + " refused";
    log_.push_back("preview " + text);
    const auto does = [&](const char* entry) { return std::ranges::count(entries, entry) > 0; };
    return accepted > 0 && does("Confirm") && (refused == 0 || does("Only"));
}

void Reference::applyChanges() {
    const int before = selected_;
    std::vector<int> listed;
    for (const Row& row : rows_) listed.push_back(find(row.key));
    const auto replaceRecord = [&](int id, const Record& made) {
        selected_ = id;
        replace("item", nodes_.at(id).key, made);
    };
    std::vector<const Intended*> renamed, dotted;
    for (const Intended& each : intended_) {
        if (each.refused) continue;
        const Node& node = nodes_.at(each.node);
        if (node.key == each.record.at("key")) {
            replaceRecord(each.node, each.record);
        } else if (holds(node.text, ".")) {
            dotted.push_back(&each);
        } else {
            Record made = each.record;
            made["name"] = node.text;
            made["key"] = node.key;
            replaceRecord(each.node, made);
            renamed.push_back(&each);
        }
    }
    std::vector<int> records;
    for (const Intended* each : renamed) {
        Node& node = nodes_.at(each->node);
        records.push_back(recordAt("item", node.key));
        drop("item", node.key);
        node.key = "";
    }
    for (std::size_t i = 0; i < renamed.size(); ++i) {
        const Record& made = renamed[i]->record;
        records_[records[i]]["name"] = made.at("name");
        records_[records[i]]["key"] = made.at("key");
        put("item", made.at("key"), records[i]);
        rename(renamed[i]->node, made.at("key"), made.at("name"));
    }
    for (const Intended* each : dotted) replaceRecord(each->node, each->record);
    saved_ = false;
    for (std::size_t i = 0; i < listed.size(); ++i)
        if (listed[i] != 0) rows_[i].key = nodes_.at(listed[i]).key;
    select(selected_ = before);
}

void Reference::duplicate(const Texts& entries) {
    intended_.clear();
    if (chosen().empty()) return;
    const int source = chosen().back();
    const Node& node = nodes_.at(source);
    const int unit = unitAround(source);
    if (unit == 0 || (node.tag != "branch" && unit != source)) return;
    const bool isUnit = node.tag == "plc";
    Texts boxes{"txtName", "txtMove", "txtCopies", "cmdOk", "cmdCancel"};
    if (isUnit) boxes.emplace_back("txtUI");
    Sheet s = sheet(isUnit ? "frmDuplicateUnit" : "frmDuplicateBranch", false, boxes);
    bulk_ = {source};
    const std::string above = isUnit ? "" : nodes_.at(node.parent).key + ".";
    for (int steps = 1; steps == 1 || find(above + s.text("txtName")) != 0; ++steps)
        s.text("txtName") = nameBehind(node.text, steps);
    s.text("txtMove") = "0";
    s.text("txtCopies") = "1";
    if (isUnit) {
        int identifier = std::stoi(record("plc", node.key)["id"]);
        const auto taken = [&](const Entry& each) {
            return records_.at(each.second).at("id") == std::to_string(identifier);
        };
        while (identifier < 254 && std::ranges::any_of(collections_["plc"], taken)) ++identifier;
        s.text("txtUI") = std::to_string(identifier);
    }
    work(s, entries);
    if (!preview(entries, "object", " to add")) return;
    std::map<std::size_t, int> made;
    for (std::size_t i = 0; i < intended_.size(); ++i) {
        const auto& [record, tag, parent, refused] = intended_[i];
        if (refused) continue;
        const int container =
            parent < 0 ? nodes_.at(source).parent : made.at(static_cast<std::size_t>(parent));
        made[i] = addWithRecord(tag, store(record), container, tag == "plc" ? "" : tag);
    }
    saved_ = false;
    focus_ = "tree";
    select(made.begin()->second);
    makeVisible(made.begin()->second);
}

// `node` of what is intended is the place of the container among it, or -1 for a copy itself.
void Reference::intendCopies(Sheet& s) {
    const int source = bulk_[0];
    const Node& top = nodes_.at(source);
    const auto copies = numberOf(s.text("txtCopies"));
    if (!numberOf(s.text("txtMove"))) return say("The number to move the addresses by is not valid.");
    if (!copies || *copies < 1 || *copies > 1000) return say("Number of copies must be between 1 and 1000.");
    std::set<std::string> claimed, identifiers;
    for (const auto& [key, unit] : collections_["plc"]) identifiers.insert(records_.at(unit).at("id"));
    const auto claim = [&](const std::string& key) {
        const bool isFree = find(key) == 0 && entry("plc", key) == nullptr &&
                            entry("branch", key) == nullptr && entry("item", key) == nullptr;
        return isFree && claimed.insert(key).second;
    };
    const std::vector<int> below = subtree(source);
    for (int copy = 0; copy < static_cast<int>(*copies); ++copy) {
        const std::string name = nameBehind(s.text("txtName"), copy);
        Record made{{"name", name},
                    {"key", top.tag == "plc" ? name : nodes_.at(top.parent).key + "." + name}};
        std::string reason =
            top.tag == "plc" ? wrongCopy(s, copy, name, identifiers, made) : branchFault(name);
        if (reason.empty() && !claim(made["key"])) reason = "The name is taken";
        if (reason.empty() && top.tag == "branch") reason = takenInCapitals(nodes_.at(top.parent), name);
        if (copy == 0 && !reason.empty()) {
            intended_.clear();
            return say(reason);
        }
        std::map<int, int> places{{source, static_cast<int>(intended_.size())}};
        intended_.push_back({made, top.tag, -1, !reason.empty()});
        if (!reason.empty()) continue;
        if (top.tag == "plc") identifiers.insert(made["id"]);
        for (const int id : below) {
            const Node& node = nodes_.at(id);
            if (id == source || !places.contains(node.parent)) continue;
            const Intended& around = intended_[static_cast<std::size_t>(places.at(node.parent))];
            const std::string key = around.record.at("key") + "." + node.text;
            bool refused = around.refused || !claim(key);
            Record record{{"name", node.text}, {"key", key}};
            if (node.tag == "branch") {
                places[id] = static_cast<int>(intended_.size());
            } else if (node.tag == "item" && entry("item", node.key) != nullptr) {
                record = this->record("item", node.key);
                const int move = std::stoi(s.text("txtMove"));
                const int address = std::stoi(record["address"]) + move * (copy + 1);
                refused = refused || (move != 0 && (address < 0 || address > 65535));
                record["name"] = node.text;
                record["key"] = key;
                record["address"] = std::to_string(address);
            } else {
                continue;
            }
            intended_.push_back({record, node.tag, places.at(node.parent), refused});
        }
    }
    s.open = false;
}

// A file holds the names of branches in capitals.
std::string Reference::takenInCapitals(const Node& container, const std::string& name) const {
    for (const int child : container.children) {
        const Node& other = nodes_.at(child);
        if (other.text == capitals(name) || (other.tag == "branch" && capitals(other.text) == capitals(name)))
            return "The name is taken by \"" + other.text + "\", as files hold branch names in capitals";
    }
    return "";
}

std::string Reference::wrongCopy(Sheet& s, int copy, const std::string& name,
                                 const std::set<std::string>& identifiers, Record& made) {
    const auto number = numberOf(s.text("txtUI"));
    const double identifier = number.value_or(0) + copy;
    Record unit = record("plc", nodes_.at(bulk_[0]).key);
    unit["name"] = unit["key"] = name;
    unit["id"] = whole(identifier, -1e9, 1e9);
    made = unit;
    if (name.empty()) return "Name field is empty.";
    if (!number) return "UI identifier is not valid.";
    if (identifier < 0 || identifier > 254) return "UI identifier must be between 0 and 254.";
    return identifiers.contains(unit["id"]) ? "UI already existing. Please use a different one" : "";
}

}  // namespace trevandix::testing
