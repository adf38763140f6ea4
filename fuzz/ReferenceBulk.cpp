// Many items changed at once.
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

}  // namespace trevandix::testing
