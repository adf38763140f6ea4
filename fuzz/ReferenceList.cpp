// Messages, enabled commands and the list, and the description of everything as lines.
#include <algorithm>
#include <set>
#include <utility>

#include "ReferenceTexts.h"

namespace trevandix::testing {

namespace {

const std::map<int, std::string> kDescriptions{
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {13, "Type mismatch"},
    {91, "Object variable not set"},
    {457, "This key is already associated with an element of this collection"},
    {35601, "Element not found"},
    {35602, "Key is not unique in collection"}};

const std::map<std::string, std::string> kSituations{
    {"start", "T............."},  {"busy", ".............."},   {"new", "TT...T.....T.."},
    {"config", "TT...T..T.TT.."}, {"modbus", "TTT.......TT.."}, {"datatype", "TT.......T.T.."},
    {"plc", "TT.TT....TTT.."},    {"branch", "TT.TT...TTTT.."}, {"itemFirst", "TTTTT...TTTTTT"},
    {"item", "TT....TT.TTTTT"}};

const std::vector<Texts> kFlags{{"mnuFile", "mnuNewCfg", "mnuOpenCfg"},
                                {"mnuSaveCfg", "mnuSaveAs", "mnuCloseCfg"},
                                {"mnuAddMBType"},
                                {"mnuAddBranch"},
                                {"mnuAddItem"},
                                {"mnuAddPlc"},
                                {"mnuCopy"},
                                {"mnuCut"},
                                {"mnuPaste"},
                                {"mnuDelete"},
                                {"mnuView", "mnuIcon", "mnuSmallIcon", "mnuList", "mnuReport"},
                                {"mnuTools", "mnuFind"},
                                {"mnuPasteName"},
                                {"mnuPasteComment"}};

const Texts kUnitColumns{"Unit Name", "ModBus Unit Identifier"};

const std::map<std::string, Texts> kColumns{
    {"config", kUnitColumns},
    {"plc", kUnitColumns},
    {"modbus", {"Data Type Name", "Read Code", "Write Code", "Single Write Code"}},
    {"datatype", {}},
    {"branch", {"Item Name", "Comment", "Address", "DataType", "ModBus Type", "Access Rights", "Index"}},
    {"item", {"Item Name", "Comment", "Address", "DataType", "ModBus Type", "Access Rights"}}};

std::string padded(const std::string& number, std::size_t digits) {
    return std::string(digits - std::min(digits, number.size()), '0') + number;
}

}  // namespace

void Reference::guarded(const std::string& procedure, const Body& body) {
    try {
        body();
    } catch (const Failure& failure) {
        say(" Error n. " + std::to_string(failure.number) + "  " + kDescriptions.at(failure.number) + " in " +
            (failure.procedure.empty() ? procedure : failure.procedure));
    }
}

char Reference::ask(const std::string& text) {
    say(text);
    if (answers_.empty()) return 'y';
    const char answer = answers_.front();
    answers_.erase(0, 1);
    return answer;
}

// Without a configuration, no further commands become enabled.
void Reference::enable(const std::string& situation) {
    if (open_ || situation == "start" || situation == "busy") enabled_ = situation;
}

// For a branch, its first child decides whether the bulk pastes are enabled.
void Reference::enableFor(int id) {
    const Node& chosen = nodes_.at(id);
    const bool itemFirst = chosen.tag == "branch" && !chosen.children.empty() &&
                           nodes_.at(chosen.children.front()).tag == "item";
    enable(itemFirst ? "itemFirst" : chosen.tag);
}

bool Reference::enabled(const std::string& command) const {
    const std::string& flags = kSituations.at(enabled_);
    for (std::size_t flag = 0; flag < kFlags.size(); ++flag)
        if (std::ranges::count(kFlags[flag], command) > 0) return flags[flag] == 'T';
    return true;
}

void Reference::select(int id) {
    guarded("TreeView1_NodeClick", [&] {
        fillList(id);
        selected_ = id;
    });
    if (focus_ == "list") clickList();
}

// Keeps the selection if the list showed the same node before.
void Reference::fillList(int id) {
    std::set<std::string> kept;
    if (subject_ == nodes_.at(id).key)
        for (const std::size_t row : selectedRows_) kept.insert(rows_[row].key);
    subject_ = nodes_.at(id).key;
    rows_.clear();
    sort(id);
    enableFor(id);
    const std::string tag = nodes_.at(id).tag;
    columns_ = kColumns.at(tag);
    if (!columns_.empty()) mode_ = 3;
    const auto finish = [&] {
        selectedRows_.clear();
        sortRows();
        selectRows(kept);
    };
    try {
        if (tag == "config" || tag == "modbus") {
            const std::string listed = tag == "config" ? "plc" : "datatype";
            for (const auto& [key, record] : collections_[listed]) addRow(listed, key, false);
        } else if (tag == "plc" || tag == "item") {
            addRow(tag, nodes_.at(id).key, false);
        } else if (tag == "branch") {
            for (const int child : nodes_.at(id).children)
                if (nodes_.at(child).tag == "item") addRow("item", nodes_.at(child).key, true);
        }
    } catch (const Failure&) {
        finish();
        throw;
    }
    finish();
}

void Reference::addRow(const std::string& tag, const std::string& key, bool index) {
    Record& shown = record(tag, key);
    const auto code = [&](const std::string& field) { return shown[field] == "0" ? "" : shown[field]; };
    if (tag == "plc") return rows_.push_back({shown["name"], "plc", {shown["name"], shown["id"]}});
    if (tag == "datatype") {
        return rows_.push_back(
            {shown["name"], "item", {shown["name"], shown["read"], code("write"), code("single")}});
    }
    const std::string& type = shown["type"];
    std::string table = type.substr(0, type.find(':'));
    std::string label = type.substr(type.find(':') + 1);
    if (holds(type, "coil") || holds(type, "input status")) {
        table = holds(type, "input status") ? "input status" : "coil";
        label = holds(type, "array") ? "boolean array" : "boolean";
    }
    std::string address = shown["address"];
    if (holds(label, "boolean")) address += "/BIT" + padded(shown["bit"], 2);
    if (holds(label, "array") || label == "string") address += "/LEN" + shown["elements"];
    Row row{key, "item", {shown["name"], shown["comment"], address, label, table, shown["right"]}};
    const std::map<std::string, std::string> codes{
        {"input status", "IS"}, {"coil", "CO"}, {"holding register", "HR"}, {"input register", "IR"}};
    if (index) row.cells.push_back(codes.at(table) + padded(shown["address"], 5) + padded(shown["bit"], 2));
    rows_.push_back(row);
}

// Keeps the selection.
void Reference::sortRows() {
    if (!listSorted_) return;
    std::set<std::string> kept;
    for (const std::size_t row : selectedRows_) kept.insert(rows_[row].key);
    std::ranges::stable_sort(rows_, {}, [&](const Row& row) {
        return sortKey_ < row.cells.size() ? capitals(row.cells[sortKey_]) : "";
    });
    selectRows(kept);
}

void Reference::selectRows(const std::set<std::string>& keys) {
    selectedRows_.clear();
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (keys.contains(rows_[row].key)) selectedRows_.push_back(row);
}

// A change of the view mode sorts rows that were renamed in place.
void Reference::showAs(int mode) {
    if (std::exchange(mode_, mode) != mode) sortRows();
}

void Reference::clickList() {
    guarded("ListView1_Click", [&] {
        if (selectedRows_.empty()) return;
        const std::string& tag = nodes_.at(at(rows_[selectedRows_.back()].key)).tag;
        if (tag != "config" && tag != "modbus") enable(tag);
    });
}

Texts Reference::seen() const {
    Texts lines = log_;
    if (!wrote_.empty()) lines.push_back("wrote " + wrote_);
    const auto keyOf = [&](int id) { return id == 0 ? "none" : "<" + nodes_.at(id).key + ">"; };
    std::string flags = std::string(open_ ? "open " : "closed ") + (saved_ ? "saved " : "unsaved ") + kind_;
    for (const char* counter : {"branch", "datatype", "item", "plc"}) {
        const auto found = counters_.find(counter);
        flags += " " + std::to_string(found == counters_.end() ? 0 : found->second);
    }
    lines.push_back(flags + " paste " + std::to_string(pasteCounter_) + " " + path_);
    lines.push_back("selected " + keyOf(selected_) + " highlight " + keyOf(highlight_) + " focus " + focus_ +
                    (treeVisible_ ? " tree" : "") + (listVisible_ ? " list" : "") +
                    (panelVisible_ ? " panel" : ""));
    const auto any = [&](const Texts& commands) {
        return std::ranges::any_of(commands, [&](const std::string& each) { return enabled(each); });
    };
    lines.push_back(std::string(canUndo() ? "undo " : "") + (canRedo() ? "redo" : ""));
    std::set<std::string> usable;
    for (const Texts& menus : kFlags)
        if (enabled(menus[0])) usable.insert(menus.begin(), menus.end());
    if (any({"mnuAddMBType", "mnuAddBranch", "mnuAddItem", "mnuAddPlc", "mnuDelete"}))
        usable.insert("mnuObjects");
    if (any({"mnuCopy", "mnuCut", "mnuPaste"})) usable.insert("mnuEdit");
    lines.push_back("usable " + joined({usable.begin(), usable.end()}));
    for (const auto& [id, each] : nodes_) {
        Texts children;
        for (const int child : each.children) children.push_back(nodes_.at(child).key);
        lines.push_back("node " + joined({each.key, each.text, each.tag, each.image, each.selectedImage}) +
                        (each.expanded ? "+" : "") + (each.sorted ? "sorted" : "") + " " + joined(children));
    }
    std::map<int, std::string> first;
    const auto told = [&](const std::string& what, int id) {
        if (id < 0) return what;
        const auto [place, isFirst] = first.try_emplace(id, what);
        if (!isFirst) return what + ": " + place->second;
        std::string line = what + ":";
        for (const auto& [field, text] : records_.at(id)) line += " " + field + "=" + text;
        return line;
    };
    for (const char* tag : {"branch", "datatype", "item", "plc"}) {
        const auto collection = collections_.find(tag);
        if (collection == collections_.end()) continue;
        for (const auto& [key, id] : collection->second)
            lines.push_back(told(std::string(tag) + " <" + key + ">", id));
    }
    for (std::size_t slot = 0; slot < buffer_.size(); ++slot)
        lines.push_back(told("slot " + std::to_string(slot), buffer_[slot]));
    std::string selectedRows;
    for (const std::size_t row : selectedRows_) selectedRows += " " + std::to_string(row);
    lines.push_back("list " + std::to_string(mode_) + (listSorted_ ? " by " + std::to_string(sortKey_) : "") +
                    " " + joined(columns_) + selectedRows);
    for (const Row& row : rows_) {
        Texts cells = row.cells;
        cells.resize(columns_.size());
        lines.push_back("row <" + row.key + "> " + row.icon + " " + joined(cells));
    }
    return lines;
}

}  // namespace trevandix::testing
