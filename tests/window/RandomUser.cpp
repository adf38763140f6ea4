// Tests the real main window with random clicks, keys, drags, menus and searches, sent as real input. Dialogs
// and message boxes are test doubles that answer at random. After each step the window must agree with the
// editor.
//     trevandix-random-user [STEPS [SEED]]
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <stdexcept>

#include "FakePlatform.h"
#include "editor/CommandTable.h"
#include "wx/WxBasics.h"
#include "wx/WxListView.h"
#include "wx/WxMainFrame.h"

namespace trevandix::testing {

namespace {

constexpr char kSample[] = "/water-works.xml";

/// Records which commands are enabled and passes the calls on.
struct Enabled : CommandBar {
    explicit Enabled(CommandBar& shown) : bar(shown) {}
    void enableMenu(std::string_view name, bool enabled) override {
        menus[std::string(name)] = enabled;
        bar.enableMenu(name, enabled);
    }
    void enableButton(std::string_view key, bool enabled) override { bar.enableButton(key, enabled); }
    CommandBar& bar;
    std::map<std::string, bool> menus;
};

class RandomUser {
public:
    explicit RandomUser(unsigned seed) : random_(seed) {
        window_->attach(&editor_);
        editor_.Form_Load();
        window_->Show();
        tree_ = dynamic_cast<WxTreeView*>(wxWindow::FindWindowByName("TreeView1", window_));
        settle();
        editor_.openFile(TREVANDIX_SAMPLES + std::string(kSample));
        settle();
        watchdog_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { input_.Char(WXK_ESCAPE); });
    }
    ~RandomUser() {
        window_->attach(nullptr);
        delete window_;  // before the objects that it shows
    }

    void step() {
        using Action = void (RandomUser::*)();
        constexpr std::array<Action, 13> kActions{
            &RandomUser::clickTriangle, &RandomUser::clickTree, &RandomUser::clickTree,
            &RandomUser::clickTree,     &RandomUser::pressKey,  &RandomUser::pressKey,
            &RandomUser::pressKey,      &RandomUser::clickList, &RandomUser::clickList,
            &RandomUser::drag,          &RandomUser::find,      &RandomUser::openMenu,
            &RandomUser::choose};
        messages_.answers.assign(4, below(3) == 0 ? Answer::No : Answer::Yes);
        forms_.scripts.assign(1, [this](FakeForm& form) { fillDialog(form); });
        clipboard_.contents = name() + "\r\n" + name();
        const std::vector<std::string> before = rowKeys();
        did_.clear();
        toggled_.reset();
        (this->*kActions[below(kActions.size())])();
        settle();
        for (const std::string& text : messages_.take()) {
            loose_ = loose_ || text.find("Error n.") != std::string::npos;
            did_ += " [" + text + "]";
        }
        compare(before);
        if (configuration_.items.size() < 60) reopen();
    }

    const std::string& did() const { return did_; }

private:
    unsigned below(std::size_t count) { return static_cast<unsigned>(random_() % count); }
    std::string name() {
        return std::string(1, static_cast<char>('A' + below(26))) + std::to_string(below(90));
    }

    // Ignores missing and disabled controls.
    static void tryTo(const std::function<void()>& action) {
        try {
            action();
        } catch (const RuntimeError&) {
        } catch (const std::logic_error&) {
        }
    }

    void fillDialog(FakeForm& form) {
        for (const std::string field :
             {"txtName", "txtBranchName", "txtItemName", "txtComment", "txtUI", "txtAddress"}) {
            const bool number = field == "txtUI" || field == "txtAddress";
            tryTo([&] { form.type(field, number ? std::to_string(below(256)) : name()); });
        }
        for (const char* list : {"cmbMBType", "cmbModbusType", "cmbDataType", "cmbAccessRight", "cmbBit"}) {
            tryTo([&] {
                const Texts items = form.items(list);
                if (!items.empty()) form.choose(list, items[below(items.size())]);
            });
        }
        for (const char* button :
             {below(4) == 0 ? "cmdAdd" : "cmdOk", below(8) == 0 ? "cmdCancel" : "cmdOk", "Command2"})
            tryTo([&] { form.press(button); });
    }

    // Runs the event loop until no input and none of its effects are pending.
    void settle() {
        wxEventLoopBase& loop = *wxEventLoopBase::GetActive();
        for (int calm = 0; calm < 6; ++calm) {
            while (loop.Pending() || wxTheApp->HasPendingEvents()) {
                wxTheApp->ProcessPendingEvents();
                if (loop.Pending()) loop.Dispatch();
                calm = 0;
            }
            loop.ProcessIdle();
            wxMilliSleep(1);
        }
    }

    void moveTo(const wxWindow& window, const wxPoint& point) {
        input_.MouseMove(window.ClientToScreen(point));
        settle();
    }

    wxPoint pointIn(const wxWindow& window) {
        const wxSize size = window.GetClientSize();
        return {static_cast<int>(below(static_cast<std::size_t>(size.x))),
                static_cast<int>(below(static_cast<std::size_t>(size.y)))};
    }

    // Mostly in the part with texts and triangles.
    wxPoint pointInTree() {
        wxPoint point = pointIn(*tree_);
        if (below(8) != 0) point.x = point.x / 3;
        return point;
    }

    wxWindow& list() const {
        wxWindow* shown = nullptr;
        for (wxWindow* each : wxWindow::FindWindowByName("ListView1", window_)->GetParent()->GetChildren())
            if (each->IsShown()) shown = each;
        return *shown;
    }

    void clickTree() {
        const wxPoint point = pointInTree();
        did_ = "click in the tree at " + std::to_string(point.x) + "," + std::to_string(point.y);
        moveTo(*tree_, point);
        below(8) == 0 ? input_.MouseDblClick() : input_.MouseClick();
    }

    // Clicks the triangle of a node above the selected one, if it is visible.
    void clickTriangle() {
        const TreeNode* node = configuration_.tree.selected();
        for (unsigned levels = 1 + below(4); levels > 0 && node->parent() != nullptr; --levels)
            node = node->parent();
        const wxSize size = tree_->GetClientSize();
        wxPoint point;
        for (point.y = 0; point.y < size.y; point.y += 4) {
            for (point.x = 0; point.x < size.x / 2; point.x += 4) {
                int flags = 0;
                tree_->HitTest(point, flags);
                if ((flags & wxTREE_HITTEST_ONITEMBUTTON) == 0 || tree_->nodeAt(point) != node) continue;
                did_ = "click on the triangle of " + node->key().str();
                toggled_ = std::pair(node->key(), !node->expanded());
                moveTo(*tree_, point);
                input_.MouseClick();
                return;
            }
        }
    }

    void clickList() {
        const wxPoint point = pointIn(list());
        constexpr std::array kHeld{WXK_NONE, WXK_NONE, WXK_NONE, WXK_CONTROL, WXK_SHIFT};
        const wxKeyCode held = kHeld[below(kHeld.size())];
        did_ = "click in the list at " + std::to_string(point.x) + "," + std::to_string(point.y);
        moveTo(list(), {point.x, point.y / (1 + static_cast<int>(below(6)))});
        if (held != WXK_NONE) input_.KeyDown(held);
        below(8) == 0 ? input_.MouseDblClick() : input_.MouseClick();
        if (held != WXK_NONE) input_.KeyUp(held);
    }

    void pressKey() {
        struct Press {
            int key;
            int modifiers;
        };
        static constexpr std::array kKeys{
            Press{WXK_UP, 0},          Press{WXK_DOWN, 0},           Press{WXK_LEFT, 0},
            Press{WXK_RIGHT, 0},       Press{WXK_HOME, 0},           Press{WXK_END, 0},
            Press{WXK_PAGEUP, 0},      Press{WXK_PAGEDOWN, 0},       Press{WXK_TAB, 0},
            Press{WXK_F6, 0},          Press{WXK_RETURN, 0},         Press{WXK_DELETE, 0},
            Press{'A', wxMOD_CONTROL}, Press{'C', wxMOD_CONTROL},    Press{'X', wxMOD_CONTROL},
            Press{'V', wxMOD_CONTROL}, Press{WXK_DOWN, wxMOD_SHIFT}, Press{'P', 0}};
        for (unsigned presses = 1 + below(4); presses > 0; --presses) {
            const Press press = kKeys[below(kKeys.size())];
            did_ += "key " + std::to_string(press.key) + "+" + std::to_string(press.modifiers) + " ";
            input_.Char(press.key, press.modifiers);
            if (below(2) == 0) settle();
        }
    }

    // Drags only branches and items, because dragged units lose their records.
    void drag() {
        const wxPoint from = pointInTree();
        const TreeNode* node = tree_->nodeAt(from);
        if (node == nullptr || (node->tag() != NodeTag::Item && node->tag() != NodeTag::Branch)) return;
        did_ = "drag of " + node->key().str();
        const bool copies = below(2) == 0;
        if (copies) input_.KeyDown(WXK_CONTROL);
        moveTo(*tree_, from);
        input_.MouseDown(wxMOUSE_BTN_RIGHT);
        settle();
        for (int moves = 0; moves < 3; ++moves) moveTo(*tree_, pointInTree());
        if (below(6) == 0) input_.Char(WXK_ESCAPE);
        watchdog_.StartOnce(150);  // closes the context menu that opens if no drag started
        input_.MouseUp(wxMOUSE_BTN_RIGHT);
        settle();
        if (copies) input_.KeyUp(WXK_CONTROL);
        loose_ = true;
    }

    void openMenu() {
        did_ = "right click";
        wxWindow& place = below(2) == 0 ? static_cast<wxWindow&>(*tree_) : list();
        moveTo(place, pointIn(place));
        watchdog_.StartOnce(150);
        input_.MouseClick(wxMOUSE_BTN_RIGHT);
    }

    void find() {
        did_ = "find";
        loose_ = true;
        if (find_ != nullptr && below(3) == 0) {
            input_.Char(WXK_F3);
            return;
        }
        window_->perform([this] {
            editor_.commandChosen("mnuFind");
            if (find_ == nullptr) find_ = forms_.last;
            find_->type("txtFind", name().substr(0, 1));
            find_->press(below(2) == 0 ? "cmdFind" : "cmdNext");
        });
    }

    void choose() {
        constexpr std::array kCommands{"mnuAddMBType", "mnuAddPlc", "mnuAddBranch", "mnuAddItem",  "mnuPaste",
                                       "mnuIcon",      "mnuList",   "mnuReport",    "mnuPasteName"};
        const std::string command = kCommands[below(kCommands.size())];
        if (!commands_.menus[command]) return;
        did_ = command;
        loose_ = loose_ || command == "mnuAddBranch";
        window_->perform([&] { editor_.commandChosen(command); });
    }

    void reopen() {
        window_->perform([this] { editor_.openFile(TREVANDIX_SAMPLES + std::string(kSample)); });
        messages_.take();
        settle();
        loose_ = false;
    }

    // Sorted, because the user may have sorted the list.
    std::vector<std::string> rowKeys() const {
        std::vector<std::string> keys;
        for (const ListRow& row : list_.rows()) keys.push_back(row.key);
        std::ranges::sort(keys);
        return keys;
    }

    static void expect(bool holds, const std::string& what) {
        if (!holds) throw std::logic_error(what);
    }

    void compare(const std::vector<std::string>& before) {
        const StructureTree& tree = configuration_.tree;
        const TreeNode* selected = tree.selected();
        expect(tree_->selectedNode() == selected, "the highlight is not the selected node");
        for (const TreeNode* up = selected->parent(); up != nullptr; up = up->parent())
            expect(up->expanded(), "the selected node is hidden: " + selected->key().str());
        for (const TreeNode* node = tree.root(); node != nullptr; node = nextBelow(*node, *tree.root()))
            expect(node->childCount() == 0 || tree_->showsExpanded(*node) == node->expanded(),
                   "wrongly expanded or collapsed: " + node->key().str());
        const TreeNode* toggled = toggled_ ? tree.find(toggled_->first) : nullptr;
        if (toggled != nullptr)
            expect(toggled->expanded() == toggled_->second,
                   "the triangle did nothing: " + toggled->key().str());
        compareList(before);
        // Renaming a data type leaves its node behind.
        for (const std::string& fault : disagreements(configuration_))
            expect(fault.starts_with("datatype "), fault);
    }

    // The rows must be those of the selected node, or unchanged if the step may leave the list behind.
    void compareList(const std::vector<std::string>& before) {
        if (configuration_.tree.selected()->tag() == NodeTag::ModBus)
            return;  // also shows records without nodes
        const std::vector<std::string> keys = rowKeys();
        for (const std::size_t row : list_.selectedRows())
            expect(row < keys.size(), "a missing row is selected");
        if (keys == wantedKeys(*configuration_.tree.selected())) {
            loose_ = false;
            return;
        }
        std::string shown;
        for (const std::string& key : keys) shown += " " + key;
        expect(loose_ && keys == before, "the list does not show what " +
                                             configuration_.tree.selected()->key().str() + " holds, but" +
                                             shown);
    }

    std::vector<std::string> wantedKeys(const TreeNode& node) const {
        std::vector<std::string> keys;
        if (node.tag() == NodeTag::Plc || node.tag() == NodeTag::Item) return {node.key().str()};
        for (const TreeNode* child = node.firstChild(); child != nullptr; child = child->nextSibling()) {
            const bool listed = (node.tag() == NodeTag::Config && child->tag() == NodeTag::Plc) ||
                                (node.tag() == NodeTag::Branch && child->tag() == NodeTag::Item);
            if (listed) keys.push_back(child->key().str());
        }
        std::ranges::sort(keys);
        return keys;
    }

    std::mt19937 random_;
    Configuration configuration_;
    ListView list_;
    WxPointer pointer_;
    FakeMessages messages_;
    FakeFileDialog fileDialog_;
    FakeClipboard clipboard_;
    FakeRegistry registry_;
    PugiXmlParser parser_;
    FakeForms forms_;
    WxMainFrame* window_ = new WxMainFrame(commandTables(), configuration_.tree, list_, pointer_);
    Enabled commands_{*window_};
    Platform platform_{messages_, fileDialog_, clipboard_, registry_, pointer_,
                       parser_,   forms_,      *window_,   commands_, "."};
    frmEditing editor_{platform_, configuration_, list_};
    WxTreeView* tree_ = nullptr;
    FakeForm* find_ = nullptr;  ///< set by the first search
    wxUIActionSimulator input_;
    wxTimer watchdog_;
    std::string did_;
    /// The node whose triangle was clicked, and whether it must be expanded now.
    std::optional<std::pair<Key, bool>> toggled_;
    bool loose_ = false;  ///< the list need not show the contents of the selected node
};

}  // namespace

class App : public wxApp {
public:
    int OnRun() override {
        const unsigned steps = argc > 1 ? static_cast<unsigned>(wxAtoi(argv[1])) : 300;
        const unsigned seed = argc > 2 ? static_cast<unsigned>(wxAtoi(argv[2])) : std::random_device()();
        wxGUIEventLoop loop;
        const wxEventLoopActivator active(&loop);
        RandomUser user(seed);
        for (unsigned step = 1; step <= steps; ++step) {
            try {
                user.step();
            } catch (const std::exception& fault) {
                std::fprintf(stderr, "seed %u, step %u, %s: %s\n", seed, step, user.did().c_str(),
                             fault.what());
                return 1;
            }
        }
        std::printf("%u steps, seed %u: the window agreed with the editor after each\n", steps, seed);
        return 0;
    }
    bool OnInit() override { return true; }
};

}  // namespace trevandix::testing

wxIMPLEMENT_APP(trevandix::testing::App);
