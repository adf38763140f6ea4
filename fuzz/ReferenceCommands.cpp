// User actions in the main window.
#include "ReferenceTexts.h"

namespace trevandix::testing {

void Reference::apply(const Step& step) {
    log_.clear();
    wrote_.clear();
    answers_ = step.answers;
    if (step.verb == "undo") return turn(done_, undone_, &std::pair<State, State>::first);
    if (step.verb == "redo") return turn(undone_, done_, &std::pair<State, State>::second);
    beginStep();
    act(step);
    endStep();
}

void Reference::act(const Step& step) {
    const int id = find(step.key);
    const bool onNode = id != 0 && treeVisible_;
    if (step.verb == "click" || step.verb == "edit") {
        if (!onNode) return;
        focus_ = "tree";
        select(id);
        beginStep();
        if (step.verb == "edit") guarded("TreeView1_DblClick", [&] { editSelected(step.entries); });
    } else if (step.verb == "expand" || step.verb == "collapse") {
        if (!onNode) return;
        nodes_.at(id).expanded = step.verb == "expand";
        if (step.verb == "collapse" && selected_ != id && lies(selected_, id)) select(id);
    } else if (step.verb == "drag" || step.verb == "copy") {
        const int target = find(step.arg);
        if (!onNode || target == 0) return;
        highlight_ = target;
        try {
            drag(id, target, step.verb == "copy");
        } catch (const Failure& failure) {
            if (failure.number == 35602) say("Name already in use at this level. Move not allowed");
        }
    } else if (step.verb == "rows" || step.verb == "editRow") {
        if (!listVisible_) return;
        selectedRows_.clear();
        for (const std::string& row : pieces(step.arg, " "))
            if (!row.empty() && std::stoul(row) < rows_.size()) selectedRows_.push_back(std::stoul(row));
        focus_ = "list";
        clickList();
        if (step.verb == "rows") return;
        guarded("ListView1_DblClick", [&] {
            if (!selectedRows_.empty()) selected_ = at(rows_[selectedRows_.back()].key);
            guarded("TreeView1_DblClick", [&] { editSelected(step.entries); });
        });
    } else if (step.verb == "sort") {
        listSorted_ = true;
        sortKey_ = std::stoul(step.arg);
        sortRows();
    } else if (step.verb == "focus") {
        focus_ = step.arg;
    } else if (step.verb == "find" || step.verb == "next") {
        if (!finding_) return;
        if (step.verb == "next") ++matches_;
        lookFor(step.arg, step.verb == "find" ? 0 : matches_);
    } else if (step.verb == "endFind") {
        finding_ = false;
    } else if (enabled(step.verb)) {
        command(step);
    }
}

void Reference::command(const Step& step) {
    const std::string file = step.arg.empty() ? "" : folder_ + step.arg;
    const std::map<std::string, Body> commands{
        {"mnuNewCfg", [&] { newConfiguration(file, step.entries); }},
        {"mnuOpenCfg", [&] { open(file); }},
        {"mnuSaveCfg", [&] { save(file); }},
        {"mnuSaveAs", [&] { saveAs(file); }},
        {"mnuCloseCfg", [&] { close(file); }},
        {"mnuCopy", [&] { copyItems(); }},
        {"mnuCut",
         [&] {
             guarded("mnuCopy_Click", [&] { copyItems(); });
             guarded("mnuDelete_Click", [&] { deleteObjects(); });
         }},
        {"mnuPaste", [&] { pasteItems(); }},
        {"mnuDelete", [&] { deleteObjects(); }},
        {"mnuPasteName", [&] { pasteTexts(true, step.arg, step.entries); }},
        {"mnuPasteComment", [&] { pasteTexts(false, step.arg, step.entries); }},
        {"mnuChangeItems", [&] { changeItems(step.entries); }},
        {"mnuDuplicate", [&] { duplicate(step.entries); }},
        {"mnuIcon", [&] { showAs(0); }},
        {"mnuSmallIcon", [&] { showAs(1); }},
        {"mnuList", [&] { showAs(2); }},
        {"mnuReport", [&] { showAs(3); }},
        {"mnuFind", [&] {
             if (!finding_) matches_ = 0;
             finding_ = true;
         }}};
    const auto found = commands.find(step.verb);
    guarded(step.verb + "_Click",
            [&] { found != commands.end() ? found->second() : addObject(step.verb, step.entries); });
}

void Reference::copyItems() {
    const std::string refused = "Please change Item name (do not use default name) before copying";
    pasteCounter_ = 0;
    if (focus_ == "list") {
        std::size_t slots = 1;
        for (const std::size_t row : selectedRows_) {
            const std::string& text = rows_[row].cells[0];
            if (begins(text, "New_Item") || begins(text, "Copied_Item")) return say(refused);
            buffer_.resize(++slots, -1);
            // If the row's item is gone, this throws and the slot keeps its old value.
            buffer_.back() = recordAt("item", rows_[row].key);
        }
    } else if (focus_ == "tree" && selected_ != 0) {
        const Node& source = nodes_.at(selected_);
        if (source.tag == "branch") say("Please use Drag&Drop to copy and paste branches");
        if (source.tag != "item") return;
        if (begins(source.text, "New_Item")) return say(refused);
        buffer_ = {-1, recordAt("item", source.key)};
    }
}

void Reference::pasteItems() {
    if (selected_ == 0 || nodes_.at(selected_).tag != "branch") return;
    const int target = selected_;
    const std::string container = nodes_.at(target).key;
    for (std::size_t slot = 1; slot < buffer_.size(); ++slot) {
        if (buffer_[slot] < 0) return say("Copied object can not be added here ");
        Record copied = records_[buffer_[slot]];
        if (copied["name"].empty()) continue;
        if (cut(copied["key"]) == container) copied["name"] += "_" + std::to_string(pasteCounter_);
        copied["key"] = container + "." + copied["name"];
        addWithRecord("item", store(copied), target, "");
    }
    ++pasteCounter_;
    select(target);
}

void Reference::deleteRows() {
    if (ask("Are you sure you want to delete the selected items ?") != 'y') return;
    Texts keys;
    for (const std::size_t row : selectedRows_) keys.push_back(rows_[row].key);
    for (const std::string& key : keys) {
        drop("item", key);
        remove(at(key));
    }
    select(selected_);
}

void Reference::deleteObjects() {
    if (selected_ == 0) return;
    const int id = selected_;
    const Node deleted = nodes_.at(id);
    const std::string sure = "Are you sure you want to delete " + deleted.text;
    if (focus_ == "list" && deleted.tag == "branch") return deleteRows();
    if (focus_ != "tree") return;
    if (deleted.tag == "plc") {
        if (ask(sure + "?") != 'y') return;
        if (!deleted.children.empty()) return say("This unit is not empty");
        drop("plc", deleted.key);
        remove(id);
        select(selected_);
    } else if (deleted.tag == "branch") {
        if (ask(sure + " and all its items?") != 'y') return;
        dropRecords(id);
        remove(id);
        select(selected_);
    } else if (deleted.tag == "item") {
        if (ask(sure + " ?") == 'y') {
            dropRecords(id);
            remove(id);
        }
        if (nodes_.at(selected_).parent != 0) select(nodes_.at(selected_).parent);
    }
}

void Reference::lookFor(const std::string& text, int passed) {
    if (text.empty()) return;
    for (const auto& [id, each] : nodes_) {
        if (!begins(capitals(each.text), capitals(text)) || passed-- > 0) continue;
        focus_ = "tree";
        makeVisible(id);
        selected_ = id;
        return;
    }
}

std::string Step::told() const {
    std::string text = verb + (key.empty() ? "" : " <" + key + ">") + (arg.empty() ? "" : " (" + arg + ")");
    for (const std::string& each : entries) text += " | " + each;
    return text + (answers.empty() ? "" : " ! " + answers);
}

}  // namespace trevandix::testing
