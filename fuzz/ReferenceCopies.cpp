// Copies of branches and units.
#include <algorithm>

#include "ReferenceTexts.h"

namespace trevandix::testing {

namespace {

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
