#include "Desk.h"

#include <algorithm>
#include <stdexcept>

namespace trevandix::testing {

namespace {

std::string joined(const Texts& texts) {
    std::string all;
    for (const std::string& text : texts) all += text + "|";
    return all;
}

Reference::Record fieldsOf(const clsItem& i) {
    return {{"name", i.sName()},
            {"key", i.sKey().str()},
            {"comment", i.sComment()},
            {"address", std::to_string(i.nAddress())},
            {"bit", std::to_string(i.nBitNumber())},
            {"elements", std::to_string(i.nElements())},
            {"type", i.sDataType()},
            {"right", i.sAccessRight()}};
}

Reference::Record fieldsOf(const clsBranch& b) {
    return {{"name", b.sName()}, {"key", b.sKey().str()}};
}

Reference::Record fieldsOf(const clsModBusType& t) {
    return {{"name", t.getName()},
            {"key", t.getName()},
            {"read", std::to_string(t.getReadCode())},
            {"write", std::to_string(t.getWriteCode())},
            {"single", std::to_string(t.getSingleWrCode())}};
}

Reference::Record fieldsOf(const clsPLC& u) {
    return {{"name", u.getName()},
            {"key", u.sKey().str()},
            {"id", std::to_string(u.getUI())},
            {"timeout", std::to_string(u.getTimeout())},
            {"address", u.getAddress()},
            {"port", u.getCom()},
            {"baud", std::to_string(u.getBaud())},
            {"parity", u.getParity()},
            {"data", std::to_string(u.getDataBits())},
            {"stop", std::to_string(u.getStopBits())},
            {"flow", u.getFlowCtl()},
            {"silent", std::to_string(u.getSilent())}};
}

class Records {
public:
    explicit Records(Texts& lines) : lines_(lines) {}
    template <typename Record>
    void tell(const std::string& what, const Record* record) {
        if (record == nullptr) return lines_.push_back(what);
        const auto [place, isFirst] = first_.try_emplace(record, what);
        if (!isFirst) return lines_.push_back(what + ": " + place->second);
        std::string line = what + ":";
        for (const auto& [field, text] : fieldsOf(*record)) line += " " + field + "=" + text;
        lines_.push_back(line);
    }
    template <typename Record>
    void tellAll(const std::string& tag, const KeyedCollection<Record>& collection) {
        for (const auto& [key, record] : collection) tell(tag + " <" + key.str() + ">", record);
    }

private:
    Texts& lines_;
    std::map<const void*, std::string> first_;
};

std::string shown(const FakeForm& form) {
    Texts names;
    for (const ControlSpec& control : form.shape.controls) {
        const std::string name(control.name);
        if (name.starts_with("txt") || name.starts_with("cmb") || name.starts_with("chk") ||
            name.starts_with("cmd"))
            names.push_back(name);
    }
    std::ranges::sort(names);
    const bool panel = form.shape.name == "frmItems" && form.visible("frmInserimento");
    std::string all = panel ? "panel" : "";
    for (const std::string& name : names) {
        all += " " + name + (form.enabled(name) ? "" : "-") + (form.checked(name) ? "+" : "");
        if (name.starts_with("cmb") || name.starts_with("txt")) all += "=" + form.text(name);
        if (name.starts_with("cmb")) all += "/" + std::to_string(form.items(name).size());
    }
    return all;
}

}  // namespace

Desk::Desk() : reference_(place_.path("")), content_(reference_.content()) {
    place_.messages.onShow = [this](std::string_view text) {
        std::string said(text);  // other tests check where the backup is
        for (const char* where : {": the previous file is kept as ", ": a whole copy is "})
            if (const std::size_t at = said.find(where); at != std::string::npos)
                said.erase(at, said.rfind(" in ") - at);
        log_.push_back("say " + said);
    };
    place_.window.treeVisible = false;
}

TreeNode* Desk::node(const std::string& key) {
    StructureTree& tree = place_.configuration.tree;
    return key.empty() ? tree.root() : tree.find(Key(key));
}

void Desk::work(FakeForm& form, const Texts& entries) {
    const std::string name(form.shape.name);
    if (name == "frmSelect" || name == "frmReplace") {
        std::string rows = "preview ";
        for (std::size_t row = 1; row < form.cells.size(); ++row)
            rows += form.cells[row][0] + form.cells[row][1] + form.cells[row][2] + "|";
        log_.push_back(name == "frmSelect" ? "opens frmSelect" : rows);
        for (const std::string& each : entries)
            if (form.open) form.fill(each);
        return;
    }
    if (name == "frmChanges") {
        log_.push_back("preview " + form.text("lblCounts"));
        const auto does = [&](const char* entry) { return std::ranges::count(entries, entry) > 0; };
        if (does("Only") && form.visible("chkAccepted")) form.toggle("chkAccepted");
        if (does("Confirm") && form.enabled("cmdConfirm")) form.press("cmdConfirm");
        return;
    }
    log_.push_back("opens " + name + shown(form));
    for (const std::string& each : entries) {
        if (!form.open) return;
        try {
            form.fill(each);
        } catch (const std::logic_error&) {
            log_.push_back("out of reach " + each);
        } catch (const RuntimeError&) {
            log_.push_back("out of reach " + each);
        }
        if (form.open) log_.push_back(shown(form));
    }
}

void Desk::act(const Step& step) {
    frmEditing& editor = place_.editor;
    TreeNode* on = place_.window.treeVisible ? node(step.key) : nullptr;
    if (step.verb == "click" || step.verb == "edit") {
        if (on == nullptr) return;
        place_.click(step.key);
        if (step.verb == "edit") editor.TreeView1_DblClick();
    } else if (step.verb == "expand" || step.verb == "collapse") {
        if (on != nullptr) editor.treeExpansionChanged(*on, step.verb == "expand");
    } else if (step.verb == "drag" || step.verb == "copy") {
        if (on == nullptr || node(step.arg) == nullptr) return;
        editor.TreeView1_MouseDown(on, {.control = step.verb == "copy"});
        editor.TreeView1_OLEStartDrag();
        editor.TreeView1_OLEDragOver(node(step.arg));
        editor.TreeView1_OLEDragDrop();
    } else if (step.verb == "rows" || step.verb == "editRow") {
        if (!place_.list.visible()) return;
        place_.window.focus = FocusedView::List;
        place_.display.selected.clear();
        for (const std::string& row : split(step.arg, " "))
            if (!row.empty() && std::stoul(row) < place_.list.rows().size())
                place_.display.selected.push_back(std::stoul(row));
        editor.ListView1_Click();
        if (step.verb == "editRow") editor.ListView1_DblClick();
    } else if (step.verb == "undo" || step.verb == "redo") {
        editor.commandChosen(step.verb == "undo" ? "mnuUndo" : "mnuRedo");
    } else if (step.verb == "sort") {
        editor.ListView1_ColumnClick(std::stoul(step.arg));
    } else if (step.verb == "focus") {
        place_.window.focus = step.arg == "list"   ? FocusedView::List
                              : step.arg == "tree" ? FocusedView::Tree
                                                   : FocusedView::None;
    } else if (step.verb == "find" || step.verb == "next" || step.verb == "endFind") {
        if (find_ == nullptr || !find_->open) return;
        if (step.verb == "endFind") return find_->press("cmdCancel");
        find_->type("txtFind", step.arg);
        find_->press(step.verb == "find" ? "cmdFind" : "cmdNext");
    } else {
        const auto menu = place_.window.menus.find(step.verb);
        if (menu != place_.window.menus.end() && !menu->second) return;
        place_.clipboard.contents = step.arg;
        place_.fileDialog.choice = step.arg.empty() ? std::nullopt : std::optional(place_.path(step.arg));
        editor.commandChosen(step.verb);
        if (!place_.forms.shown.empty() && place_.forms.shown.back() == "frmFind") find_ = place_.forms.last;
    }
}

std::string Desk::apply(const Step& step) {
    const std::map<char, Answer> answers{{'y', Answer::Yes}, {'n', Answer::No}, {'c', Answer::Cancel}};
    if (step.verb == "mnuOpenCfg" && !step.arg.empty() && !reference_.readable(step.arg)) return {};
    log_.clear();
    place_.registry.published.clear();
    place_.forms.shown.clear();
    place_.messages.answers.clear();
    for (const char each : step.answers) place_.messages.answers.push_back(answers.at(each));
    // A dialog is there again after a preview that is not confirmed.
    const auto once = [this, &step, asked = false](FakeForm& form) mutable {
        if (!std::exchange(asked, true)) work(form, step.entries);
    };
    place_.forms.scripts.assign(2, once);
    act(step);
    place_.forms.scripts.clear();
    place_.messages.take();
    place_.pointer.shapes.clear();
    place_.window.percents.clear();
    place_.fileDialog.calls.clear();
    reference_.apply(step);

    const Texts is = seen();
    const Texts wanted = reference_.seen();
    const auto [left, right] = std::ranges::mismatch(is, wanted);
    const Texts content = std::exchange(content_, reference_.content());
    const std::uint64_t revision = std::exchange(revision_, place_.configuration.revision());
    const bool lost = content != content_ && revision == revision_;
    if (left == is.end() && right == wanted.end()) return lost ? "a change that is not counted" : "";
    return "editor:    " + (left == is.end() ? "no more" : *left) +
           "\nreference: " + (right == wanted.end() ? "no more" : *right);
}

Texts Desk::seen() {
    const Configuration& c = place_.configuration;
    const ListView& list = place_.list;
    Texts lines = log_;
    for (const auto& [kind, path] : place_.registry.published)
        lines.push_back("wrote " + kind + " " + path + " " + readFile(path));
    const auto keyOf = [](const TreeNode* n) { return n == nullptr ? "none" : "<" + n->key().str() + ">"; };
    lines.push_back(std::string(c.state.configurationOpen ? "open " : "closed ") +
                    (c.state.saved ? "saved " : "unsaved ") + c.state.interfaceKind + " " +
                    std::to_string(c.state.branchCounter) + " " + std::to_string(c.state.dataTypeCounter) +
                    " " + std::to_string(c.state.itemCounter) + " " + std::to_string(c.state.unitCounter) +
                    " paste " + std::to_string(c.state.pasteCounter) + " " + c.state.filePath);
    const FocusedView focus = place_.window.focus;
    lines.push_back("selected " + keyOf(c.tree.selected()) + " highlight " + keyOf(c.tree.dropHighlight()) +
                    " focus " +
                    (focus == FocusedView::List   ? "list"
                     : focus == FocusedView::Tree ? "tree"
                                                  : "none") +
                    (place_.window.treeVisible ? " tree" : "") + (list.visible() ? " list" : "") +
                    (place_.window.panel.empty() ? "" : " panel"));
    lines.push_back(std::string(c.undoName().empty() ? "" : "undo ") + (c.redoName().empty() ? "" : "redo"));
    Texts usable;
    for (const auto& [menu, on] : place_.window.menus)
        if (on) usable.push_back(menu);
    lines.push_back("usable " + joined(usable));
    for (const TreeNode* n = c.tree.firstAdded(); n != nullptr; n = StructureTree::nextAdded(*n)) {
        Texts children;
        for (const TreeNode* child = n->firstChild(); child != nullptr; child = child->nextSibling())
            children.push_back(child->key().str());
        lines.push_back("node " +
                        joined({n->key().str(), n->text(), std::string(tagName(n->tag())),
                                std::string(imageName(n->look().image)),
                                std::string(imageName(n->look().selectedImage))}) +
                        (n->expanded() ? "+" : "") + (n->sorted() ? "sorted" : "") + " " + joined(children));
    }
    Records records(lines);
    records.tellAll("branch", c.branches);
    records.tellAll("datatype", c.dataTypes);
    records.tellAll("item", c.items);
    records.tellAll("plc", c.units);
    for (std::size_t slot = 0; slot < c.state.copyBuffer.size(); ++slot)
        records.tell("slot " + std::to_string(slot), c.state.copyBuffer[slot].get());
    Texts columns;
    for (const ListColumn& column : list.columns()) columns.push_back(column.header);
    std::string selected;
    for (const std::size_t row : list.selectedRows()) selected += " " + std::to_string(row);
    lines.push_back("list " + std::to_string(static_cast<int>(list.mode())) +
                    (list.sorted() ? " by " + std::to_string(list.sortKey()) : "") + " " + joined(columns) +
                    selected);
    for (std::size_t row = 0; row < list.rows().size(); ++row) {
        Texts cells;
        for (std::size_t column = 0; column < columns.size(); ++column)
            cells.emplace_back(list.cell(row, column));
        lines.push_back("row <" + list.rows()[row].key + "> " + std::string(list.rows()[row].smallIcon) +
                        " " + joined(cells));
    }
    return lines;
}

}  // namespace trevandix::testing
