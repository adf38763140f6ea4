// What all dialogs have in common, and the branch dialog.
#include <algorithm>

#include "ReferenceTexts.h"

namespace trevandix::testing {

namespace {

std::string filtered(const std::string& sheet, const std::string& box, const std::string& text) {
    const bool number = box == "txtAddress" ? sheet == "frmItems"
                                            : box == "txtElements" || box == "txtNumbItems" ||
                                                  box == "txtMove" || box == "txtStart" || box == "txtCopies";
    std::string kept;
    for (const char c : text) {
        const bool digit = c >= '0' && c <= '9';
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (number && !digit && c != '-' && c != '.' && c != ' ') continue;
        if (box == "txtItemName" && !digit && !letter && c != '-' && c != '_') continue;
        kept += c;
    }
    return kept;
}

}  // namespace

Reference::Sheet Reference::sheet(const std::string& name, bool edit, const Texts& boxes) {
    Sheet made{name, edit};
    for (const std::string& box : boxes) made.boxes[box];
    if (edit) made.oldKey = nodes_.at(selected_).key;
    return made;
}

std::string Reference::shown(const Sheet& sheet) const {
    std::string all = sheet.panel ? "panel" : "";
    for (const auto& [name, box] : sheet.boxes) {
        all += " " + name + (box.on ? "" : "-") + (box.checked ? "+" : "");
        const bool list = name.starts_with("cmb");
        if (list || name.starts_with("txt")) all += "=" + box.text;
        if (list) all += "/" + std::to_string(box.items.size());
    }
    return all;
}

void Reference::work(Sheet& sheet, const Texts& entries) {
    log_.push_back("opens " + sheet.name + shown(sheet));
    for (const std::string& each : entries) {
        if (!sheet.open) break;
        if (!enter(sheet, each)) log_.push_back("out of reach " + each);
        if (sheet.open) log_.push_back(shown(sheet));
    }
}

// Returns false for an action that is impossible for a user.
bool Reference::enter(Sheet& sheet, const std::string& entry) {
    const std::size_t end = entry.find('=');
    const std::string name = entry.substr(0, end);
    const auto place = sheet.boxes.find(name);
    if (place == sheet.boxes.end() || !place->second.on) return false;
    if (sheet.panel != (name == "txtNumbItems" || name == "cmdOkNumber")) return false;
    Box& box = place->second;
    if (end == std::string::npos) {
        if (name.starts_with("chk")) box.checked = !box.checked;
        pressed(sheet, name);
        return true;
    }
    const std::string text = entry.substr(end + 1);
    const bool typed = name.starts_with("txt") || name == "cmbData" || name == "cmbStop";
    if (typed) {
        const std::string kept = filtered(sheet.name, name, text);
        if (!kept.empty() || text.empty()) box.text = kept;
        return true;
    }
    if (std::ranges::count(box.items, text) == 0) return false;
    box.text = text;
    pressed(sheet, name);
    return true;
}

void Reference::pressed(Sheet& sheet, const std::string& control) {
    const bool many = sheet.name == "frmChangeItems";
    const std::map<std::string, Body> handlers{
        {"cmdCancel", [&] { sheet.open = false; }},
        {"chkSingle",
         [&] {
             Box& code = sheet.boxes["txtSingleCode"];
             code.on = sheet.boxes["chkSingle"].checked;
             if (!code.on) code.text = "";
         }},
        {"cmbMBType", [&] { presetType(sheet); }},
        {"cmbModbusType", [&] { many ? offerValues(sheet) : chooseTable(sheet); }},
        {"cmbDataType", [&] { many ? chooseLabelOfMany(sheet) : chooseLabel(sheet); }},
        {"cmdAdd", [&] { addOne(sheet); }},
        {"cmdGroup",
         [&] {
             sheet.panel = true;
             sheet.text("txtNumbItems") = "1";
         }},
        {"cmdOkNumber", [&] { addGroup(sheet); }},
        {"cmdOk", [&] {
             if (many) return intendChanges(sheet);
             if (sheet.name.starts_with("frmDuplicate")) return intendCopies(sheet);
             if (sheet.name == "frmPLC") return confirmUnit(sheet);
             if (sheet.name == "frmModBus") return confirmType(sheet);
             if (sheet.name == "frmBranch") return confirmBranch(sheet);
             if (confirmItem(sheet)) sheet.open = false;
         }}};
    const auto found = handlers.find(control);
    if (found != handlers.end()) guarded(control + "_Click", found->second);
}

bool Reference::nameTaken(const std::string& tag, const std::string& name, bool edit) {
    const Node& container = nodes_.at(edit ? nodes_.at(selected_).parent : selected_);
    const bool taken = std::ranges::any_of(container.children, [&](int child) {
        const Node& each = nodes_.at(child);
        return child != selected_ && each.tag == tag && each.text == name;
    });
    if (taken) say("Name already existing. Please use a different name");
    return taken;
}

void Reference::addObject(const std::string& command, const Texts& entries) {
    if (selected_ == 0) return;
    const std::string tag = nodes_.at(selected_).tag;
    const bool inUnit = tag == "plc" || tag == "branch";
    added_ = false;
    if (command == "mnuAddPlc" && tag == "config") {
        Sheet made = unitSheet(false);
        work(made, entries);
        if (!added_) return;
        const auto [key, record] = collections_["plc"].back();
        drop("plc", key);
        touched_ = false;
        selected_ = addWithRecord("plc", record, selected_, "");
        saved_ = false;
        ++counters_["plc"];
        select(selected_);
    } else if (command == "mnuAddMBType" && (tag == "modbus" || tag == "branch")) {
        Sheet made = typeSheet(false);
        work(made, entries);
        if (!added_) return;
        const auto [key, record] = collections_["datatype"].back();
        const int orphan = find(key);
        const int folder = find("ModBus");
        if (orphan != 0 && nodes_.at(orphan).tag == "datatype") {
            makeVisible(selected_ = orphan);
        } else {
            drop("datatype", key);
            touched_ = false;
            at("ModBus");
            selected_ = addWithRecord("datatype", record, folder, "");
        }
        saved_ = false;
        ++counters_["datatype"];
        select(folder);
    } else if (command == "mnuAddBranch" && inUnit) {
        Sheet made = sheet("frmBranch", false, {"txtBranchName", "cmdOk", "cmdCancel"});
        made.text("txtBranchName") = "NewBranch" + std::to_string(counters_["branch"]);
        work(made, entries);
        if (!added_) return;
        const auto [key, record] = collections_["branch"].back();
        drop("branch", key);
        touched_ = false;
        selected_ = addWithRecord("branch", record, selected_, "branch");
        saved_ = false;
        ++counters_["branch"];
    } else if (command == "mnuAddItem" && inUnit) {
        Sheet made = itemSheet(false);
        work(made, entries);
        select(selected_);
    }
}

void Reference::editSelected(const Texts& entries) {
    if (selected_ == 0) return;
    const std::string tag = nodes_.at(selected_).tag;
    if (tag == "plc" || tag == "branch" || tag == "item") recordAt(tag, nodes_.at(selected_).key);
    if (tag == "datatype") {
        Sheet made = typeSheet(true);
        work(made, entries);
        select(at("ModBus"));
    } else if (tag == "branch") {
        Sheet made = sheet("frmBranch", true, {"txtBranchName", "cmdOk", "cmdCancel"});
        made.text("txtBranchName") = nodes_.at(selected_).text;
        work(made, entries);
        select(selected_);
    } else if (tag == "plc") {
        Sheet made = unitSheet(true);
        work(made, entries);
        select(selected_);
    } else if (tag == "item") {
        Sheet made = itemSheet(true);
        work(made, entries);
        // The item keeps its row, even if it was renamed.
        const auto row = std::ranges::find(rows_, made.oldKey, &Row::key);
        if (row != rows_.end()) row->key = nodes_.at(selected_).key;
        select(nodes_.at(selected_).parent);
    }
}

// Replaces the record under the selected node's key and gives everything below new keys. Changes nothing if
// one of the keys is taken.
void Reference::replace(const std::string& tag, const std::string& oldKey, Record record) {
    const int top = selected_;
    recordAt(tag, oldKey);
    std::vector<std::pair<int, std::string>> moves{{top, record["key"]}};
    for (std::size_t i = 0; i < moves.size() && tag != "item"; ++i) {
        const auto [id, key] = moves[i];
        std::size_t behind = i;
        for (const int child : nodes_.at(id).children) {
            const Node& each = nodes_.at(child);
            if (each.tag != "item" && each.tag != "branch") continue;
            moves.insert(moves.begin() + static_cast<std::ptrdiff_t>(++behind),
                         {child, key + "." + each.text});
        }
    }
    const auto leaves = [&](int id) {
        return std::ranges::any_of(moves, [&](const auto& move) { return move.first == id; });
    };
    std::rotate(moves.begin(), moves.begin() + 1, moves.end());  // checks the nodes below first
    for (const auto& [id, key] : moves) {
        const Node& node = nodes_.at(id);
        const int taker = find(key);
        // The top node cannot take a key that a node below it still has.
        const bool free = taker == 0 || (id == top ? taker == top : leaves(taker));
        const bool recordLeaves = taker != 0 && free && nodes_.at(taker).tag == node.tag;
        if (entry(node.tag, key) != nullptr && !recordLeaves) throw Failure{457};
        if (!free) throw Failure{35602};
    }
    std::rotate(moves.begin(), moves.end() - 1, moves.end());
    std::vector<int> records;
    for (const auto& [id, key] : moves) {
        records.push_back(recordAt(nodes_.at(id).tag, nodes_.at(id).key));
        drop(nodes_.at(id).tag, nodes_.at(id).key);
        nodes_.at(id).key = "";
    }
    records[0] = store(record);
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const auto& [id, key] = moves[i];
        records_[records[i]]["key"] = key;
        put(nodes_.at(id).tag, key, records[i]);
        rename(id, key, i == 0 ? record["name"] : nodes_.at(id).text);
    }
}

void Reference::confirmBranch(Sheet& s) {
    const std::string name = s.text("txtBranchName");
    if (nameTaken("branch", name, s.edit)) return;
    const int container = s.edit ? nodes_.at(selected_).parent : selected_;
    const Record made{{"name", name}, {"key", nodes_.at(container).key + "." + name}};
    if (s.edit) {
        replace("branch", s.oldKey, made);
    } else {
        put("branch", made.at("key"), store(made));
        added_ = true;
    }
    saved_ = false;
    s.open = false;
}

}  // namespace trevandix::testing
