#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Invariants.h"
#include "editor/frmEditing.h"
#include "platform/pugi/PugiXml.h"

namespace trevandix::testing {

using Texts = std::vector<std::string>;
/// Control names with texts.
using Fields = std::vector<std::pair<std::string, std::string>>;

/// Records every message box and answers from `answers`; without an entry it presses the first button.
struct FakeMessages : Messages {
    Answer show(std::string_view text, Buttons choice, Icon kind) override;
    Texts texts;
    Buttons buttons = Buttons::Ok;  ///< of the last box
    Icon icon = Icon::None;
    std::deque<Answer> answers;
    std::function<void(std::string_view)> onShow;  ///< called while the box is open
    /// Returns the recorded texts and clears them.
    Texts take() { return std::exchange(texts, {}); }
};

struct FakeFileDialog : FileDialog {
    std::optional<std::string> open(std::string_view title, std::string_view filter) override;
    std::optional<std::string> save(std::string_view title, std::string_view filter,
                                    std::string_view proposedName) override;
    std::optional<std::string> choice;  ///< the chosen file; nothing for Cancel
    Texts calls;                        ///< title|filter|proposed name
};

struct FakeClipboard : Clipboard {
    std::string text() override { return contents; }
    bool setText(std::string_view text) override {
        if (!locked) contents = text;
        return !locked;
    }
    std::string contents;
    bool locked = false;
};

struct FakeRegistry : Registry {
    Publication publish(std::string_view interfaceKind, std::string_view filePath, Rights rights) override;
    bool canAsk() const override { return asks; }
    bool onMappedDrive(std::string_view) const override { return mapped; }
    std::vector<std::pair<std::string, std::string>> published;
    bool refuses = false;  ///< unless rights are asked for
    bool asks = true;
    bool mapped = false;
    Publication answer = Publication::Done;  ///< when rights are asked for
};

struct FakePointer : MousePointer {
    void set(Pointer pointer) override { shapes.push_back(pointer); }
    std::vector<Pointer> shapes;
};

/// A form without a screen. `showModal` runs the test's script, which types, presses and reads like a user.
struct FakeForm : Form {
    explicit FakeForm(const FormSpec& shape);
    std::string text(std::string_view name) const override { return state(name).box.text(state(name).text); }
    void setText(std::string_view name, std::string_view text) override;
    void setItems(std::string_view name, const Texts& items) override;
    Texts items(std::string_view name) const override { return state(name).items; }
    bool enabled(std::string_view name) const override { return state(name).enabled; }
    void setEnabled(std::string_view name, bool enabled) override { state(name).enabled = enabled; }
    bool visible(std::string_view name) const override { return state(name).visible; }
    void setVisible(std::string_view name, bool visible) override { state(name).visible = visible; }
    bool checked(std::string_view name) const override { return state(name).checked; }
    void setChecked(std::string_view name, bool checked) override;
    void setFocus(std::string_view name) override { focused = state(name).shape->name; }
    void setCells(std::string_view, const std::vector<Texts>& rows) override { cells = rows; }
    void connectList(std::string_view, const ListContents& rows, ListHandlers handlers) override {
        contents = &rows;
        inList = std::move(handlers);
    }
    void refreshList(std::string_view, const ListPlace& place) override { rowsShown = place; }
    ListPlace listPlace(std::string_view) const override { return rowsShown; }
    void connectMap(std::string_view, const MapContents& lines, MapHandlers handlers) override {
        map = &lines;
        inMap = std::move(handlers);
    }
    void refreshMap(std::string_view) override {}
    void on(std::string_view name, Handler handler) override { state(name).handler = std::move(handler); }
    void onClosed(Handler handler) override { closed_ = std::move(handler); }
    void onActivated(Handler handler) override { activated_ = std::move(handler); }
    void showModal() override;
    void showModeless() override;
    void close() override;

    // User actions: type replaces the text of a box, through its filter; choose picks a list entry; toggle
    // switches a check box or chooses an option; press presses a button; fill does these in turn, given as
    // "field=text|button|box". They throw std::logic_error for a disabled or hidden control.
    void type(std::string_view name, std::string_view text);
    void choose(std::string_view name, std::string_view item);
    void toggle(std::string_view name);
    void press(std::string_view name);
    void fill(std::string_view fields);
    /// Returns the same fields in the same form with their present values. Also accepts "FIELD.count" (length
    /// of a list), "off" and "hidden" (names of disabled and hidden controls), "focus" and "open".
    std::string shown(std::string_view fields) const;

    const FormSpec& shape;
    bool open = false;
    std::string focused;
    std::vector<Texts> cells;
    const ListContents* contents = nullptr;
    ListHandlers inList;
    ListPlace rowsShown;
    const MapContents* map = nullptr;
    MapHandlers inMap;
    std::function<void(FakeForm&)> script;

private:
    struct State {
        const ControlSpec* shape = nullptr;
        std::string text;  ///< as shown
        BoxText box;
        Texts items;
        bool enabled = true;
        bool visible = true;
        bool checked = false;
        Handler handler;
    };
    State& state(std::string_view name) const;
    State& usable(std::string_view name) const;
    mutable std::map<std::string, State, std::less<>> controls_;
    Handler closed_;
    Handler activated_;
};

/// Each form that is created gets the next script; without a script a modal form closes at once.
struct FakeForms : Forms {
    using Script = std::function<void(FakeForm&)>;
    std::unique_ptr<Form> create(const FormSpec& shape) override;
    std::deque<Script> scripts;
    Texts shown;               ///< names of the forms created
    FakeForm* last = nullptr;  ///< valid while the modeless form exists
};

struct FakeListDisplay : ListDisplay {
    void contentsChanged(bool, const std::optional<ListPlace>& place) override {
        selected = place ? place->selected : std::vector<std::size_t>();
    }
    ListPlace place() const override { return {selected, currentRow()}; }
    void rowChanged(std::size_t) override {}
    void setVisible(bool) override {}
    std::vector<std::size_t> selectedRows() const override { return selected; }
    std::optional<std::size_t> currentRow() const override {
        return selected.empty() ? std::nullopt : std::optional(selected.back());
    }
    void selectAll() override {}
    std::vector<std::size_t> selected;  ///< the last one is the current row
};

struct FakeWindow : MainWindow, CommandBar {
    void setTreeVisible(bool visible) override { treeVisible = visible; }
    FocusedView focusedView() const override { return focus; }
    void focusTree() override { focus = FocusedView::Tree; }
    void showImportPanel(std::string_view text) override { panel = text; }
    void hideImportPanel() override { panel.clear(); }
    void setPercent(int value) override { percents.push_back(value); }
    void processEvents() override {
        if (onEvents) onEvents();
    }
    void redraw() override { processEvents(); }
    void close() override { closed = true; }
    void showAboutBox() override {}
    void addToRecentFiles(std::string_view filePath) override { recent.emplace_back(filePath); }
    void setStatus(StatusField field, std::string_view text) override { status[field] = text; }
    void enableMenu(std::string_view name, bool enabled) override { menus[std::string(name)] = enabled; }
    void enableButton(std::string_view, bool) override {}

    bool treeVisible = true;
    std::string panel;  ///< empty while hidden
    bool closed = false;
    FocusedView focus = FocusedView::None;
    std::map<StatusField, std::string> status;
    std::vector<int> percents;
    Texts recent;
    std::function<void()> onEvents;
    std::map<std::string, bool, std::less<>> menus;
};

/// A new folder; the destructor deletes it and its contents.
class OwnFolder {
public:
    OwnFolder();
    ~OwnFolder();
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    std::filesystem::path path;
};

/// Makes a const part of a configuration writable, to create states that no edit creates.
template <typename Part>
Part& behindTheDoor(const Part& part) {
    return const_cast<Part&>(part);
}
inline EditableTree& behindTheDoor(StructureTree& tree) {
    return static_cast<EditableTree&>(tree);
}

/// The whole editor on test doubles, with its own temporary folder.
class Workplace {
    OwnFolder ownFolder_;  // first member, so that all files are closed before it is deleted

public:
    /// `state` is the folder for recovery files; by default a subfolder of `folder`.
    explicit Workplace(const std::filesystem::path& state = {});

    FakeMessages messages;
    FakeFileDialog fileDialog;
    FakeClipboard clipboard;
    FakeRegistry registry;
    FakePointer pointer;
    FakeForms forms;
    FakeWindow window;
    FakeListDisplay display;
    PugiXmlParser parser;
    std::filesystem::path folder;
    Configuration configuration;
    ListView list;
    Platform platform;
    frmEditing editor;
    bool checks = true;

    /// Runs New for this interface kind.
    void newConfiguration(std::string_view interfaceKind);
    /// Writes the bytes to a file in `folder` and opens it.
    void openText(std::string_view bytes, const std::string& name = "test.xml");
    std::string path(const std::string& name) const { return (folder / name).string(); }
    /// Clicks the node with this key; the root for an empty key.
    TreeNode& click(std::string_view key);
    TreeNode& node(std::string_view key) { return configuration.tree.at(Key(key)); }
    bool has(std::string_view key) const { return configuration.tree.find(Key(key)) != nullptr; }
    clsItem& item(std::string_view key) { return behindTheDoor(*configuration.items.at(Key(key))); }
    /// Empty if the root or nothing is selected.
    std::string selectedKey() const {
        const TreeNode* node = configuration.tree.selected();
        return node != nullptr ? node->key().str() : "";
    }
    /// Moves the focus to the list and selects the rows with these texts.
    void selectRows(const Texts& texts);

    // A command, a double click on a node, and dropping the dragged node. They throw if tree and collections
    // agreed before but do not agree afterwards, unless `checks` is off, for benchmarks.
    void run(std::string_view command);
    void edit(std::string_view key);
    void drop(const TreeNode& source);

private:
    void checked(std::string_view what, bool mayPart, const std::function<void()>& step);
};

/// Splits the text at each separator.
Texts split(std::string_view text, std::string_view separator = "|");
/// Errors: std::logic_error if the text does not contain `what`.
std::string replaced(std::string text, std::string_view what, std::string_view by);
std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, std::string_view bytes);

using trevandix::disagreements;

/// A file as the writer formats it, with the given lines of data types and units. Adds CR LF.
std::string fileText(const Texts& dataTypes, const Texts& units, bool rtu = false);
/// The lines of one item element at a depth.
std::string tagText(int depth, std::string_view name, std::string_view type = "HREGISTER VT_I2",
                    int address = 1, std::string_view comment = "");

}  // namespace trevandix::testing
