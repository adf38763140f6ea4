#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/frmEditing.h"
#include "model/Invariants.h"
#include "platform/pugi/PugiXml.h"

namespace trevandix::testing {

/// Records every box and answers from a script; unscripted boxes get the first button.
class FakeMessages : public Messages {
public:
    Answer show(std::string_view text, Buttons buttons, Icon icon) override;
    std::vector<std::string> texts;
    std::vector<Buttons> buttonsShown;
    std::vector<Icon> icons;
    std::deque<Answer> answers;
    /// The texts so far, which are forgotten.
    std::vector<std::string> take() { return std::exchange(texts, {}); }
};

class FakeFileDialog : public FileDialog {
public:
    std::optional<std::string> open(std::string_view title, std::string_view filter) override;
    std::optional<std::string> save(std::string_view title, std::string_view filter,
                                    std::string_view proposedName) override;
    std::optional<std::string> choice;  ///< what the user picks; nothing for Cancel
    std::vector<std::string> calls;     ///< title|filter|proposal
};

class FakeClipboard : public Clipboard {
public:
    std::string text() override { return contents; }
    std::string contents;
};

class FakeRegistry : public Registry {
public:
    bool publish(std::string_view interfaceKind, std::string_view filePath) override;
    std::vector<std::pair<std::string, std::string>> published;
    bool refuses = false;
};

class FakePointer : public MousePointer {
public:
    void set(Pointer pointer) override { shapes.push_back(pointer); }
    std::vector<Pointer> shapes;
};

/// A form without a screen. `showModal` runs the test's script, which presses, types and reads as a user
/// would.
class FakeForm : public Form {
public:
    explicit FakeForm(const FormSpec& shape);
    std::string text(std::string_view name) const override;
    void setText(std::string_view name, std::string_view text) override;
    void setItems(std::string_view name, const std::vector<std::string>& items) override;
    std::vector<std::string> items(std::string_view name) const override;
    bool enabled(std::string_view name) const override;
    void setEnabled(std::string_view name, bool enabled) override;
    bool visible(std::string_view name) const override;
    void setVisible(std::string_view name, bool visible) override;
    bool checked(std::string_view name) const override;
    void setChecked(std::string_view name, bool checked) override;
    void setFocus(std::string_view name) override;
    void setCells(std::string_view name, const std::vector<std::vector<std::string>>& rows) override;
    void on(std::string_view name, Handler handler) override;
    void onClosed(Handler handler) override { closed_ = std::move(handler); }
    void onActivated(Handler handler) override { activated_ = std::move(handler); }
    void showModal() override;
    void showModeless() override;
    void close() override;

    // What a user does. Each refuses (throws std::logic_error) what a disabled or hidden control would not
    // let him.
    void type(std::string_view name,
              std::string_view text);  ///< replaces a text box's contents, through its filter
    void choose(std::string_view name, std::string_view item);  ///< picks an entry of a list
    void toggle(std::string_view name);                         ///< a check box; an option is chosen
    void press(std::string_view name);                          ///< a button

    const FormSpec& shape;
    bool open = false;
    std::string focused;
    std::vector<std::vector<std::string>> cells;
    std::function<void(FakeForm&)> script;

private:
    struct State {
        const ControlSpec* shape = nullptr;
        std::string text;
        std::vector<std::string> items;
        bool enabled = true;
        bool visible = true;
        bool checked = false;
        Handler handler;
    };
    State& state(std::string_view name);
    const State& state(std::string_view name) const;
    State& usable(std::string_view name);
    std::map<std::string, State, std::less<>> controls_;
    Handler closed_;
    Handler activated_;
};

/// Hands out forms; each newly shown one runs the next script, or closes when there is none.
class FakeForms : public Forms {
public:
    using Script = std::function<void(FakeForm&)>;
    std::unique_ptr<Form> create(const FormSpec& shape) override;
    std::deque<Script> scripts;
    std::vector<std::string> shown;  ///< names of the forms created
    FakeForm* last = nullptr;        ///< valid while the modeless form lives
};

class FakeListDisplay : public ListDisplay {
public:
    void contentsChanged() override {
        selected.clear();
        ++refreshes;
    }
    void rowChanged(std::size_t) override {}
    void setVisible(bool) override {}
    std::vector<std::size_t> selectedRows() const override { return selected; }
    std::optional<std::size_t> currentRow() const override;
    void selectAll() override {}
    std::vector<std::size_t> selected;  ///< the last one is the current row
    int refreshes = 0;
};

class FakeWindow : public MainWindow, public CommandBar {
public:
    void setTreeVisible(bool visible) override { treeVisible = visible; }
    FocusedView focusedView() const override { return focus; }
    void focusTree() override { focus = FocusedView::Tree; }
    void showImportPanel(bool visible) override { panelVisible = visible; }
    void setPercent(int value) override { percents.push_back(value); }
    void processEvents() override {
        if (onEvents) onEvents();
    }
    void close() override { closed = true; }
    void showAboutBox() override { ++aboutShown; }
    void setStatus(StatusField field, std::string_view text) override { status[field] = text; }
    void enableMenu(std::string_view name, bool enabled) override { menus[std::string(name)] = enabled; }
    void enableButton(std::string_view key, bool enabled) override { buttons[std::string(key)] = enabled; }

    bool treeVisible = true;
    bool panelVisible = false;
    bool closed = false;
    int aboutShown = 0;
    FocusedView focus = FocusedView::None;
    std::map<StatusField, std::string> status;
    std::vector<int> percents;
    std::function<void()> onEvents;
    std::map<std::string, bool, std::less<>> menus;
    std::map<std::string, bool, std::less<>> buttons;
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
    clsItem& item(std::string_view key) { return *configuration.items.at(Key(key)); }
    /// Selects list rows by their text, as by the mouse, with the focus in the list.
    void selectRows(const std::vector<std::string>& texts);
    /// Chooses a command. Throws when tree and collections, agreeing before, do not agree afterwards.
    void run(std::string_view command);
};

std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, std::string_view bytes);

using trevandix::disagreements;

/// A file of the writer's shape around the given lines of data types and units (TCP/IP unless `rtu`), CR LF
/// added.
std::string fileText(const std::vector<std::string>& dataTypes, const std::vector<std::string>& units,
                     bool rtu = false);
/// One tag element's lines at a depth.
std::string tagText(int depth, std::string_view name, std::string_view type = "HREGISTER VT_I2",
                    int address = 1, std::string_view comment = "");

}  // namespace trevandix::testing
