#include "FakePlatform.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace trevandix::testing {

Answer FakeMessages::show(std::string_view text, Buttons choice, Icon kind) {
    texts.emplace_back(text);
    if (onShow) onShow(text);
    buttons = choice;
    icon = kind;
    if (buttons == Buttons::Ok) return Answer::Ok;
    if (answers.empty()) return Answer::Yes;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> FakeFileDialog::open(std::string_view title, std::string_view filter) {
    calls.push_back(std::string(title) + "|" + std::string(filter));
    return choice;
}

std::optional<std::string> FakeFileDialog::save(std::string_view title, std::string_view filter,
                                                std::string_view proposedName) {
    calls.push_back(std::string(title) + "|" + std::string(filter) + "|" + std::string(proposedName));
    return choice;
}

Publication FakeRegistry::publish(std::string_view interfaceKind, std::string_view filePath, Rights rights) {
    const Publication result = !refuses                ? Publication::Done
                               : rights == Rights::Own ? Publication::Refused
                                                       : answer;
    if (result == Publication::Done) published.emplace_back(interfaceKind, filePath);
    return result;
}

FakeForm::FakeForm(const FormSpec& formSpec) : shape(formSpec) {
    for (const ControlSpec& control : shape.controls) {
        State& made = controls_[std::string(control.name)];
        made.shape = &control;
        const bool field = control.kind == ControlKind::Text || control.kind == ControlKind::Choice ||
                           control.kind == ControlKind::Combo;
        if (!field) made.text = control.caption;
    }
}

FakeForm::State& FakeForm::state(std::string_view name) const {
    const auto place = controls_.find(name);
    if (place == controls_.end()) throw RuntimeError(ErrorNumber::ElementNotFound, name);
    return place->second;
}

FakeForm::State& FakeForm::usable(std::string_view name) const {
    State& control = state(name);
    const State& frame = control.shape->frame.empty() ? control : state(control.shape->frame);
    if (!open || !control.enabled || !frame.enabled || !frame.visible)
        throw std::logic_error("out of reach: " + std::string(name));
    return control;
}

void FakeForm::setText(std::string_view name, std::string_view text) {
    State& control = state(name);
    const bool listed = control.shape->kind != ControlKind::Choice ||
                        std::ranges::find(control.items, text) != control.items.end();
    const bool box = control.shape->kind == ControlKind::Text || control.shape->kind == ControlKind::Combo;
    control.text = listed ? (box ? BoxText::oneLine(text) : std::string(text)) : std::string();
    control.box.set(listed ? text : std::string_view(), control.text);
}

void FakeForm::setItems(std::string_view name, const Texts& items) {
    state(name).items = items;
    setText(name, "");
}

void FakeForm::setChecked(std::string_view name, bool checked) {
    State& control = state(name);
    if (checked && control.shape->kind == ControlKind::Option) {
        for (auto& [otherName, other] : controls_) {
            if (other.shape->kind == ControlKind::Option) other.checked = false;
        }
    }
    control.checked = checked;
}

void FakeForm::showModal() {
    showModeless();
    if (script) script(*this);
    close();
}

void FakeForm::showModeless() {
    open = true;
    if (activated_) activated_();
}

void FakeForm::close() {
    if (!open) return;
    open = false;
    const Handler handler = closed_;  // a copy, because it may destroy the form
    if (handler) handler();
}

void FakeForm::type(std::string_view name, std::string_view text) {
    State& control = usable(name);
    if (control.shape->kind == ControlKind::Choice) throw std::logic_error("takes no typed text");
    const std::string kept = entered(control.shape->filter, text);
    if (!kept.empty() || text.empty()) control.text = kept;
}

void FakeForm::choose(std::string_view name, std::string_view item) {
    State& control = usable(name);
    if (std::ranges::find(control.items, item) == control.items.end()) {
        throw std::logic_error("no such entry: " + std::string(item));
    }
    control.text = item;
    if (control.handler) control.handler();
}

void FakeForm::toggle(std::string_view name) {
    State& control = usable(name);
    setChecked(name, control.shape->kind == ControlKind::Option || !control.checked);
    if (control.handler) control.handler();
}

void FakeForm::press(std::string_view name) {
    const Handler handler = usable(name).handler;
    if (handler) handler();
}

void FakeForm::fill(std::string_view fields) {
    for (const std::string& field : split(fields)) {
        const std::size_t end = field.find('=');
        const std::string name = field.substr(0, end);
        const ControlKind kind = state(name).shape->kind;
        if (end != std::string::npos) {
            kind == ControlKind::Choice ? choose(name, field.substr(end + 1))
                                        : type(name, field.substr(end + 1));
        } else {
            kind == ControlKind::Check || kind == ControlKind::Option ? toggle(name) : press(name);
        }
    }
}

std::string FakeForm::shown(std::string_view fields) const {
    const auto which = [&](auto applies) {
        std::string names;
        for (const ControlSpec& control : shape.controls) {
            if (applies(state(control.name))) names += (names.empty() ? "" : " ") + std::string(control.name);
        }
        return names;
    };
    const auto value = [&](const std::string& name) -> std::string {
        if (name == "off") return which([](const State& control) { return !control.enabled; });
        if (name == "hidden") return which([](const State& control) { return !control.visible; });
        if (name == "focus") return focused;
        if (name == "open") return open ? "yes" : "no";
        if (name.ends_with(".count")) return std::to_string(state(split(name, ".")[0]).items.size());
        const State& control = state(name);
        return control.shape->kind == ControlKind::Check ? control.checked ? "on" : "off" : text(name);
    };
    std::string found;
    for (const std::string& field : split(fields)) {
        const std::string name = field.substr(0, field.find('='));
        found += (found.empty() ? "" : "|") + name + "=" + value(name);
    }
    return found;
}

std::unique_ptr<Form> FakeForms::create(const FormSpec& shape) {
    auto form = std::make_unique<FakeForm>(shape);
    shown.emplace_back(shape.name);
    if (!scripts.empty()) {
        form->script = std::move(scripts.front());
        scripts.pop_front();
    }
    last = form.get();
    return form;
}

OwnFolder::OwnFolder() {
    std::random_device random;
    path = std::filesystem::temp_directory_path() / ("trevandix-test-" + std::to_string(random()));
    std::filesystem::create_directories(path);
}

OwnFolder::~OwnFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

Workplace::Workplace(const std::filesystem::path& state)
    : folder(ownFolder_.path),
      platform{messages,
               fileDialog,
               clipboard,
               registry,
               pointer,
               parser,
               forms,
               window,
               window,
               folder.string(),
               (state.empty() ? folder / "state" : state).string()},
      editor(platform, configuration, list) {
    list.setDisplay(&display);
    editor.Form_Load();
}

void Workplace::newConfiguration(std::string_view interfaceKind) {
    forms.scripts.emplace_back([rtu = interfaceKind == kRtu](FakeForm& form) {
        form.toggle(rtu ? "optRTU" : "optTcpip");
        form.press("cmdOk");
    });
    run("mnuNewCfg");
}

void Workplace::openText(std::string_view bytes, const std::string& name) {
    writeFile(folder / name, bytes);
    fileDialog.choice = path(name);
    run("mnuOpenCfg");
}

void Workplace::checked(std::string_view what, bool mayPart, const std::function<void()>& step) {
    if (!checks) return step();
    const bool agreed = !mayPart && disagreements(configuration).empty();
    step();
    const auto faults = agreed ? disagreements(configuration) : brokenLinks(configuration.tree);
    if (!faults.empty()) throw std::logic_error("after " + std::string(what) + ": " + faults.front());
}

void Workplace::run(std::string_view command) {
    checked(command, false, [&] { editor.commandChosen(command); });
}

void Workplace::edit(std::string_view key) {
    const bool mayPart = click(key).tag() == NodeTag::DataType;  // a renamed type keeps its node
    checked("a double click", mayPart, [&] { editor.TreeView1_DblClick(); });
}

void Workplace::drop(const TreeNode& source) {
    const bool ownRecord = source.tag() == NodeTag::Item || source.tag() == NodeTag::Branch;
    checked("a drop", !ownRecord, [&] { editor.TreeView1_OLEDragDrop(); });
}

TreeNode& Workplace::click(std::string_view key) {
    TreeNode& target = key.empty() ? *configuration.tree.root() : node(key);
    window.focus = FocusedView::Tree;
    editor.TreeView1_NodeClick(target);
    return target;
}

void Workplace::selectRows(const Texts& texts) {
    window.focus = FocusedView::List;
    display.selected.clear();
    for (std::size_t row = 0; row < list.rows().size(); ++row) {
        if (std::ranges::find(texts, list.rows()[row].text) != texts.end()) display.selected.push_back(row);
    }
    editor.ListView1_Click();
}

Texts split(std::string_view text, std::string_view separator) {
    Texts parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + separator.size());
    }
}

std::string replaced(std::string text, std::string_view what, std::string_view by) {
    const auto at = text.find(what);
    if (at == std::string::npos) throw std::logic_error("not there: " + std::string(what));
    return text.replace(at, what.size(), by);
}

std::string readFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

void writeFile(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string fileText(const Texts& dataTypes, const Texts& units, bool rtu) {
    const std::string root = rtu ? "VOSKModBusRTUCfg" : "VOSKModBusTcpIpCfg";
    std::string text = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<" + root + ">\r\n\t<MODBUS>\r\n";
    for (const auto& line : dataTypes) text += line + "\r\n";
    text += "\t</MODBUS>\r\n\t<OPC_DA>\r\n";
    for (const auto& block : units) text += block + "\r\n";
    return text + "\t</OPC_DA>\r\n</" + root + ">\r\n";
}

std::string tagText(int depth, std::string_view name, std::string_view type, int address,
                    std::string_view comment) {
    clsItem item;
    item.sName(name);
    item.sComment(comment);
    item.nAddress(address);
    std::string text = item.GetXmlTag(depth);
    const auto at = text.find("<datatype></datatype>");
    return text.replace(at, 21, "<datatype>" + std::string(type) + "</datatype>");
}

}  // namespace trevandix::testing
