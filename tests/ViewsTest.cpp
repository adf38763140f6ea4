// What the tree and the list show, and which commands each situation offers.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "Plant.h"
#include "editor/CommandTable.h"
#include "editor/Enabling.h"
#include "platform/Text.h"

namespace trevandix::testing {

namespace {

struct WaterWorks : Workplace {
    WaterWorks() { openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml")); }

    std::string headers() const {
        std::string result;
        for (const ListColumn& column : list.columns()) result += column.header + "|";
        return result;
    }
    /// Whether exactly these menu entries can be chosen.
    void expectOn(std::string_view names) const {
        Texts on;
        for (const auto& [name, enabled] : window.menus) {
            if (enabled) on.push_back(name);
        }
        Texts wanted = split(names, " ");
        std::ranges::sort(wanted);
        EXPECT_EQ(on, wanted);
    }
};

}  // namespace

TEST(Views, ListAndCommandsOfEveryKindOfNode) {
    const std::string units = "Unit Name|ModBus Unit Identifier|";
    const std::string item = "Item Name|Comment|Address|DataType|ModBus Type|Access Rights|";
    const std::string start = "mnuFile mnuNewCfg mnuOpenCfg";
    const std::string open = start + " mnuSaveCfg mnuSaveAs mnuTools mnuCloseCfg mnuFind";
    const std::string list = open + " mnuView mnuIcon mnuSmallIcon mnuList mnuReport mnuObjects";
    const std::string inUnit = list + " mnuAddBranch mnuAddItem mnuDelete";
    const std::string inBranch = inUnit + " mnuEdit mnuPaste";
    const std::string bulk = " mnuPasteName mnuPasteComment";
    const std::string onItem = list + bulk + " mnuEdit mnuCopy mnuCut mnuDelete";
    const std::string bearings = "Intake.PUMPS.PUMP1.MOTOR.BEARINGS";

    WaterWorks place;
    place.click(bearings);
    const ListRow first = place.list.rows().at(0);
    place.selectRows({first.text});
    place.expectOn(onItem);
    place.run("mnuIcon");

    struct Case {
        std::string key;
        std::string headers;
        std::size_t rows;
        std::string on;
    };
    const std::vector<Case> cases{
        {"coil", "", 0, open + " mnuObjects mnuDelete"},
        {"", units, 4, list + " mnuAddPlc mnuEdit mnuPaste"},
        {"ModBus", "Data Type Name|Read Code|Write Code|Single Write Code|", 4, list + " mnuAddMBType"},
        {"Intake", units, 1, inUnit},
        {"Reservoir.FUTURE_CHAMBER_C", item + "Index|", 0, inBranch},
        {bearings, item + "Index|", place.node(bearings).childCount(), inBranch + bulk + " mnuAddMBType"},
        {first.key, item, 1, onItem},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        place.click(c.key);
        EXPECT_EQ(place.headers(), c.headers);
        EXPECT_EQ(place.list.rows().size(), c.rows);
        place.expectOn(c.on);
        // Without columns the mode stays.
        EXPECT_EQ(place.list.mode(), c.headers.empty() ? ListMode::Icon : ListMode::Report);
    }
    place.click("ModBus");
    EXPECT_EQ(place.list.cell(0, 0), "input status");
    EXPECT_EQ(place.list.cell(0, 2), "");  // a code of 0 leaves its cell empty
    place.run("mnuCloseCfg");
    place.expectOn(start);
}

// A sub-branch that comes first keeps the bulk pastes off although items follow it. After a copy by dragging
// two nodes share a record, which names the copy; each row still leads to its own node.
TEST(Views, RowsOfABranch) {
    PlantedWorkplace place({"P", "P.A/", "P.A.AAA/", "P.A.Run", "P.A.alpha", "P.B/"});
    play(place, {{"copy P.A.Run to P.B; P.A", "list P.A: alpha Run"}});
    EXPECT_FALSE(place.window.menus["mnuPasteName"]);
    EXPECT_EQ(place.list.rows().at(1).key, "P.A.Run");
    play(place, {{"P.B", "list P.B: Run"}});
    EXPECT_TRUE(place.window.menus["mnuPasteName"]);
    EXPECT_EQ(place.list.rows().at(0).key, "P.B.Run");
}

// What hides or deletes the selected node runs the select-node routine on the one that is selected then. A
// row whose node has gone only reports the error.
TEST(Views, ListShowsTheSelectedNode) {
    PlantedWorkplace place({"P", "P.A/", "P.A.B/", "P.A.B.x", "P.A.y", "P.C/", "P.C.z", "Q"});
    const std::string sure = " | said Are you sure you want to delete ";
    place.at("P.A.B.x").editor.treeExpansionChanged(place.node("P.A"), false);
    play(place, {{"", "list P.A: y"}});
    place.editor.treeExpansionChanged(place.node("P.C"), false);
    play(place,
         {{"", "list P.A: y"},
          {"mnuDelete", "list P.C: z" + sure + "A and all its items?"},
          {"Q; mnuDelete", "list P: P" + sure + "Q?"},
          {"copy P.C.z to P; P.z", "list P.z: z"},
          {"P.C: z; drag P.C.z to ModBus; openObject",
           "list P.C: *z | opens  | said " + failure("35601  Element not found", "ListView1_DblClick")[0]}});
}

// Rows keep their selection when they are sorted, which is always ascending, shown otherwise or shown again,
// and the commands go with it.
TEST(Views, RowsStaySelected) {
    Workplace place;
    startPlant(place);
    plant(place, {"P", "P.A/", "P.A.a", "P.A.b", "P.A.c", "P.B/", "P.B.d"});
    place.item("P.A.c").sComment("1");
    place.item("P.A.a").sComment("2");
    const std::string sure = " | said Are you sure you want to delete the selected items ?";
    play(place, {{"P.A: c b", "list P.A: a *b *c"},
                 {"sort: 1", "list P.A: *b *c a"},
                 {"sort: 1; mnuIcon; mnuReport", "list P.A: *b *c a"},
                 {"openObject: txtComment=3", "list P.A: *b a *c"}});
    EXPECT_TRUE(place.window.menus["mnuCopy"]);
    play(place, {{"mnuDelete", "list P.A: a" + sure}});
    EXPECT_FALSE(place.window.menus["mnuCopy"]);
    // Another node's rows begin afresh, also where the same item is among them.
    play(place, {{"P.A: a; openObject: txtItemName=renamed", "list P.A: *renamed"},
                 {"P.B: d", "list P.B: *d"},
                 {"P.B.d", "list P.B.d: d"}});
    EXPECT_TRUE(place.list.sorted() && place.list.sortKey() == 1U);
}

// The status bar follows every way in which selection, contents and file change.
TEST(Views, StatusBarFollowsTheEditor) {
    WaterWorks place;
    auto& status = place.window.status;
    play(place, {{"", "selection " + place.path("test.xml") + " | state Saved"},
                 {"Intake.PUMPS.PUMP1", "selection Intake.PUMPS.PUMP1"},
                 {"mnuFind", "opens frmFind"}});
    EXPECT_TRUE(status[StatusField::Counts].starts_with("4 units, "));
    play(place, {{"find: PUMP2", "selection Intake.PUMPS.PUMP2 | notice "},
                 {"next: PUMP2; next: PUMP2; next: PUMP2; next: PUMP2", "notice No further match"},
                 {"find: PUMP9", "notice No match"},
                 // Found, the item is selected under the commands of the branch.
                 {"find: Temp_Drive; mnuAddItem",
                  "notice Nothing added: an item is selected, not a unit or a branch"},
                 {"Intake", "selection Intake: 192.168.10.11, identifier 1, 2000 ms | notice "}});
    const TreeNode& branch = place.click("Intake.PUMPS.PUMP1.MOTOR.BEARINGS");
    place.selectRows({branch.firstChild()->text(), branch.lastChild()->text()});
    play(place,
         {{"mnuCopy", "selection " + branch.key().str() + ", 2 rows selected | notice 2 items copied"}});
    addUnit(place, "Outlet", "9");
    play(place, {{"", "state Unsaved changes"}});
    for (const bool refuses : {true, false}) {
        place.registry.refuses = refuses;
        place.run("mnuSaveCfg");
        EXPECT_EQ(status[StatusField::Saved], "Saved");
        EXPECT_EQ(status[StatusField::Notice].find("Published to the server: ") != 0, refuses);
    }
    place.editor.fileDropped(place.path("test.xml"));
    EXPECT_TRUE(status[StatusField::Counts].starts_with("5 units, "));
    place.messages.take();
    play(place, {{"", "notice "}});
    place.openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "boiler-house-rtu.xml"));
    play(place, {{"Boiler1", "selection Boiler1: COM1, 19200, 8E1, identifier 1"}});
    place.openText(fileText({}, {}), "small.xml");
    plant(place, {"U", "U.B/", "U.B.x"});
    play(place, {{"mnuFind", "counts 1 unit, 1 branch, 1 item"}});
    for (const bool capitals : {false, true, false}) {  // said once, where there is reason to
        if (capitals) addBranch(place, "U", "small");
        place.run("mnuSaveCfg");
        EXPECT_EQ(status[StatusField::Notice].starts_with("Branch names come back in capitals"), capitals);
    }
    // While the message box is up, the bar tells what has been done.
    addBranch(place, "U", "D");
    place.messages.onShow = [&](std::string_view text) {
        EXPECT_EQ(status[StatusField::Saved], text.ends_with(" saved") ? "Saved" : "Unsaved changes");
    };
    place.run("mnuSaveCfg");
    place.messages.take();
    play(place, {{"mnuCloseCfg", "selection  | counts  | state "}});
}

TEST(Views, StateFollowsTheContent) {
    const std::string names = "; U.A: a b; mnuPasteName: ";
    const std::string comments = "; U.A: a b; mnuPasteComment: ";
    const Texts unchanged{
        "U.A: a; mnuCopy",
        "U.B; mnuPaste",
        "drag U.A.a to U.A.b",
        "drag U.A.a to U.C",
        "clipboard: x y\r\nx z" + names,
        "clipboard: a\r\nb" + names,
        "clipboard: " + names,
        "clipboard: \r\n\r\n" + comments,
        "clipboard: " + comments,
        "edit W.i: txtAddress=1",
        "edit W: txtUI=1",
        "edit U.C: txtBranchName=C",
        "edit holding register: txtReadCode=3",
    };
    const Texts changing{
        "U.A: a; mnuDelete",
        "U.A.a; mnuCopy; U.B; mnuPaste",
        "drag U.A.a to U.B",
        "drag U to V",
        "clipboard: x\r\ny" + names,
        "clipboard: x\r\ny" + comments,
        "edit W.i: txtAddress=2",
        "edit W: txtUI=2",
        "edit V: txtUI=3",  // moves behind another
        "edit U.C: txtBranchName=D",
        "edit holding register: txtReadCode=2",
        // The node without a record gets the new one.
        "edit holding register: cmbMBType=coil; mnuSaveCfg; ModBus; mnuAddMBType: cmbMBType=holding register",
    };
    for (const auto& [state, cases] :
         {std::pair("state Saved", unchanged), {"state Unsaved changes", changing}}) {
        for (const std::string& steps : cases) {
            PlantedWorkplace place({"U", "U.A/", "U.A.b", "U.A.a", "U.B/", "U.C/", "U.C.a"});
            addDataType(place, "holding register");
            addUnit(place, "V", "3");
            addUnit(place, "W", "1");
            addItem(place, "W", "i");
            play(place, {{"top", "state Unsaved changes"}});
            place.saved();
            play(place, {{"", "state Saved"}});
            place.messages.onShow = [&](std::string_view) { place.messages.texts.clear(); };
            play(place, {{steps, state}});
            EXPECT_EQ(place.configuration.changed(), cases == changing) << steps;
        }
    }
}

// Each is pressed at a node, with an item selected in the list where there are items, and so is F2.
TEST(Commands, EveryButtonRunsItsCommand) {
    const std::vector<std::array<std::string_view, 3>> cases{
        {"new", "U.A", "form frmSelect"},
        {"open", "U.A", "file Open"},
        {"save", "U.A", "news Published"},
        {"close", "U.A", "tree 0"},
        {"modbus", "ModBus", "form frmModBus"},
        {"plc", "", "form frmPLC"},
        {"branch", "U.A", "form frmBranch"},
        {"item", "U.A", "form frmItems"},
        {"copy", "U.A", "news 1 item copied"},
        {"cut", "U.A", "items 0 news 1 item copied"},
        {"paste", "U.A", "items 2"},
        {"delete", "U.A", "items 0 news ."},
        {"icon", "U.A", "mode 0"},
        {"smallicon", "U.A", "mode 1"},
        {"list", "U.A", "mode 2"},
        {"report", "U.A", "mode 3"},
        {"find", "U.A", "form frmFind"},
        {"exit", "U.A", "closed 1"},
        {"pastitem", "U.A", "cell Item name"},
        {"pastcomment", "U.A", "cell Item comment"},
        {"F2", "U.A", "form frmItems"},
        {"F2 in the tree", "U.A", "form frmBranch"},
    };
    const auto buttons = std::ranges::count_if(
        commandRows(), [](const CommandRow& command) { return !command.button.key.empty(); });
    EXPECT_EQ(cases.size(), buttons + 2U);
    for (const auto& [button, node, effect] : cases) {
        SCOPED_TRACE(std::string(button));
        PlantedWorkplace place({"U", "U.A/", "U.A.x"});
        std::string cell;
        const auto seen = [&] {
            const Texts& files = place.fileDialog.calls;
            return "form " + place.forms.shown.back() + " file " + (files.empty() ? "" : files.back()) +
                   " items " + std::to_string(place.configuration.items.size()) + " news " +
                   place.window.status[StatusField::Notice] + ". mode " +
                   std::to_string(static_cast<int>(place.list.mode())) + " tree " +
                   std::to_string(place.window.treeVisible) + " closed " +
                   std::to_string(place.window.closed) + " cell " + cell;
        };
        if (button == "paste") place.at("U.A.x").run("mnuCopy");
        place.at(node, {"x"});
        place.clipboard.contents = "y";
        place.forms.shown.emplace_back();
        place.list.setMode(button == "icon" ? ListMode::Report : ListMode::Icon);
        place.display.selected = {0};
        place.forms.scripts.emplace_back([&](FakeForm& form) {
            if (!form.cells.empty()) cell = form.cells[0][0];
        });
        EXPECT_EQ(seen().find(effect), std::string::npos);
        if (button.ends_with("tree")) place.window.focus = FocusedView::Tree;
        if (button.starts_with("F2")) place.run("openObject");
        place.editor.Toolbar1_ButtonClick(button);
        EXPECT_NE(seen().find(effect), std::string::npos) << seen();
    }
}

// No name, shortcut, button, place or access key of a menu is there twice, and every command stands in a menu
// or has a key.
TEST(Commands, TablesFitTogether) {
    std::set<std::string> taken;
    const auto take = [&](std::string kind, std::string_view text) {
        EXPECT_TRUE(text.empty() || taken.insert(kind.append(": ").append(text)).second) << kind;
    };
    const auto takeAccessKey = [&](std::string_view menu, std::string_view caption) {
        const auto at = caption.find('&');
        if (at == std::string_view::npos) return;
        take("access key in " + std::string(menu), upperCased(caption.substr(at + 1, 1)));
    };
    for (const MenuSpec& menu : commandTables().menus) {
        take("menu", menu.name);
        takeAccessKey("the menu bar", menu.caption);
    }
    for (const CommandSpec& command : commandTables().commands) {
        take("name", command.name);
        take("shortcut", command.shortcut);
        take("button", command.button.key);
        if (!command.button.key.empty()) take("place", std::to_string(command.button.place));
        takeAccessKey(command.menu, command.caption);
        EXPECT_TRUE(taken.contains("menu: " + std::string(command.menu)) ||
                    (command.menu.empty() && !command.shortcut.empty()))
            << command.name;
    }
}

}  // namespace trevandix::testing
