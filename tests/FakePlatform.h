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
/// Texts by the names of their controls.
using Fields = std::vector<std::pair<std::string, std::string>>;

/// Records every box and answers from a script; unscripted boxes get the first button.
struct FakeMessages : Messages {
    Answer show(std::string_view text, Buttons choice, Icon kind) override;
    Texts texts;
    Buttons buttons = Buttons::Ok;  ///< of the last box
    Icon icon = Icon::None;
    std::deque<Answer> answers;
    std::function<void(std::string_view)> onShow;  ///< what there is to see meanwhile
    /// The texts so far, which are forgotten.
    Texts take() { return std::exchange(texts, {}); }
};

struct FakeFileDialog : FileDialog {
    std::optional<std::string> open(std::string_view title, std::string_view filter) override;
    std::optional<std::string> save(std::string_view title, std::string_view filter,
                                    std::string_view proposedName) override;
    std::optional<std::string> choice;  ///< what the user picks; nothing for Cancel
    Texts calls;                        ///< title|filter|proposal
};

struct FakeClipboard : Clipboard {
    std::string text() override { return contents; }
    std::string contents;
};

struct FakeRegistry : Registry {
    bool publish(std::string_view interfaceKind, std::string_view filePath) override;
    std::vector<std::pair<std::string, std::string>> published;
    bool refuses = false;
};

struct FakePointer : MousePointer {
    void set(Pointer pointer) override { shapes.push_back(pointer); }
    std::vector<Pointer> shapes;
};

/// A form without a screen. `showModal` runs the test's script, which presses, types and reads as a user
/// would.
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
    void on(std::string_view name, Handler handler) override { state(name).handler = std::move(handler); }
    void onClosed(Handler handler) override { closed_ = std::move(handler); }
    void onActivated(Handler handler) override { activated_ = std::move(handler); }
    void showModal() override;
    void showModeless() override;
    void close() override;

    // What a user does: replaces a text box's contents, through its filter; picks an entry of a list;
    // switches a check box, or chooses an option; presses a button; does all of that in turn, told
    // as "field=text|button|box". Each refuses (throws std::logic_error) what a disabled or hidden control
    // would not let him.
    void type(std::string_view name, std::string_view text);
    void choose(std::string_view name, std::string_view item);
    void toggle(std::string_view name);
    void press(std::string_view name);
    void fill(std::string_view fields);
    /// The same fields, told in the same way, with what they show now. Besides: "FIELD.count" for the length
    /// of a list, "off" and "hidden" for the controls that are out of use or sight, "focus", "open".
    std::string shown(std::string_view fields) const;

    const FormSpec& shape;
    bool open = false;
    std::string focused;
    std::vector<Texts> cells;
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

/// Hands out forms; each newly shown one runs the next script, or closes when there is none.
struct FakeForms : Forms {
    using Script = std::function<void(FakeForm&)>;
    std::unique_ptr<Form> create(const FormSpec& shape) override;
    std::deque<Script> scripts;
    Texts shown;               ///< names of the forms created
    FakeForm* last = nullptr;  ///< valid while the modeless form lives
};

struct FakeListDisplay : ListDisplay {
    void contentsChanged(bool) override { selected.clear(); }
    ListPlace place() const override { return {selected, currentRow()}; }
    void restore(const ListPlace& place) override { selected = place.selected; }
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
    void showImportPanel(bool visible) override { panelVisible = visible; }
    void setPercent(int value) override { percents.push_back(value); }
    void processEvents() override {
        if (onEvents) onEvents();
    }
    void close() override { closed = true; }
    void showAboutBox() override {}
    void setStatus(StatusField field, std::string_view text) override { status[field] = text; }
    void enableMenu(std::string_view name, bool enabled) override { menus[std::string(name)] = enabled; }
    void enableButton(std::string_view, bool) override {}

    bool treeVisible = true;
    bool panelVisible = false;
    bool closed = false;
    FocusedView focus = FocusedView::None;
    std::map<StatusField, std::string> status;
    std::vector<int> percents;
    std::function<void()> onEvents;
    std::map<std::string, bool, std::less<>> menus;
};

/// A new folder, which goes away with everything in it.
class OwnFolder {
public:
    OwnFolder();
    ~OwnFolder();
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    std::filesystem::path path;
};

/// What a configuration gives out as const, to bring about what no edit does.
template <typename Part>
Part& behindTheDoor(const Part& part) {
    return const_cast<Part&>(part);
}
inline EditableTree& behindTheDoor(StructureTree& tree) {
    return static_cast<EditableTree&>(tree);
}

/// The whole editor on doubles, with a folder of its own that goes away with it.
class Workplace {
    OwnFolder ownFolder_;  // first, so that nothing in it is open any more when it goes

public:
    /// Unsaved work is kept in a folder of its own, unless another is named.
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

    /// An empty configuration of the kind, as New makes it.
    void newConfiguration(std::string_view interfaceKind);
    /// Writes the bytes to a file of the folder and opens it.
    void openText(std::string_view bytes, const std::string& name = "test.xml");
    std::string path(const std::string& name) const { return (folder / name).string(); }
    /// Clicks the node with the key; the first node for an empty key.
    TreeNode& click(std::string_view key);
    TreeNode& node(std::string_view key) { return configuration.tree.at(Key(key)); }
    bool has(std::string_view key) const { return configuration.tree.find(Key(key)) != nullptr; }
    clsItem& item(std::string_view key) { return behindTheDoor(*configuration.items.at(Key(key))); }
    /// Empty for the first node, and for none.
    std::string selectedKey() const {
        const TreeNode* node = configuration.tree.selected();
        return node != nullptr ? node->key().str() : "";
    }
    /// Selects list rows by their text, as by the mouse, with the focus in the list.
    void selectRows(const Texts& texts);

    // A command, a double click on the node, and the drop of a node that is being dragged. Each throws when
    // tree and collections, agreeing before, do not agree afterwards.
    void run(std::string_view command);
    void edit(std::string_view key);
    void drop(const TreeNode& source);

private:
    void checked(std::string_view what, bool mayPart, const std::function<void()>& step);
};

/// The texts that the separator sets apart.
Texts split(std::string_view text, std::string_view separator = "|");
/// Throws std::logic_error when the text does not hold `what`.
std::string replaced(std::string text, std::string_view what, std::string_view by);
std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, std::string_view bytes);

using trevandix::disagreements;

/// A file of the writer's shape around the given lines of data types and units (TCP/IP unless `rtu`), CR LF
/// added.
std::string fileText(const Texts& dataTypes, const Texts& units, bool rtu = false);
/// One tag element's lines at a depth.
std::string tagText(int depth, std::string_view name, std::string_view type = "HREGISTER VT_I2",
                    int address = 1, std::string_view comment = "");

}  // namespace trevandix::testing
