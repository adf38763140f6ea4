// Tests what tree, list and status bar show, and which commands each situation enables.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "Plant.h"
#include "editor/CommandTable.h"
#include "editor/Enabling.h"
#include "platform/Text.h"

namespace trevandix::testing {

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

    Workplace place;
    place.openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml"));
    plantBranch(place.configuration, place.node("Reservoir"), "EMPTY");
    const auto expectOn = [&](const std::string& names) {  // exactly these menu entries are enabled
        std::set<std::string> on;
        for (const auto& [name, enabled] : place.window.menus) {
            if (enabled) on.insert(name);
        }
        const Texts wanted = split(names, " ");
        EXPECT_EQ(on, std::set<std::string>(wanted.begin(), wanted.end()));
    };
    place.click(bearings);
    const ListRow first = place.list.rows().at(0);
    place.selectRows({first.text});
    expectOn(onItem);
    place.run("mnuIcon");

    using Case = std::tuple<std::string, std::string, std::size_t, std::string>;
    for (const auto& [key, headers, rows, on] : std::vector<Case>{
             {"coil", "", 0, open + " mnuObjects mnuDelete"},
             {"", units, 4, list + " mnuAddPlc mnuEdit mnuPaste"},
             {"ModBus", "Data Type Name|Read Code|Write Code|Single Write Code|", 4, list + " mnuAddMBType"},
             {"Intake", units, 1, inUnit},
             {"Reservoir.EMPTY", item + "Index|", 0, inBranch},
             {bearings, item + "Index|", place.node(bearings).childCount(),
              inBranch + bulk + " mnuAddMBType"},
             {first.key, item, 1, onItem}}) {
        SCOPED_TRACE(key);
        place.click(key);
        std::string shown;
        for (const ListColumn& column : place.list.columns()) shown += column.header + "|";
        EXPECT_EQ(shown, headers);
        EXPECT_EQ(place.list.rows().size(), rows);
        expectOn(on);
        // The mode changes only with the columns.
        EXPECT_EQ(place.list.mode(), headers.empty() ? ListMode::Icon : ListMode::Report);
    }
    place.click("ModBus");
    EXPECT_EQ(place.list.cell(0, 0), "input status");
    EXPECT_EQ(place.list.cell(0, 2), "");  // a code of 0 leaves the cell empty
    place.run("mnuCloseCfg");
    expectOn(start);
}

// When the selected node is hidden or deleted, the list shows the node that is selected next. Opening a row
// whose node is gone reports an error and does nothing else.
TEST(Views, ListFollowsTheSelectedNode) {
    PlantedWorkplace place({"P", "P.A/", "P.A.B/", "P.A.B.x", "P.A.y", "P.C/", "P.C.z", "Q", "R"});
    const std::string sure = " | said Are you sure you want to delete ";
    place.at("P.A.B.x").editor.treeExpansionChanged(place.node("P.A"), false);
    play(place, {{"", "list P.A: y"}});
    place.editor.treeExpansionChanged(place.node("P.C"), false);
    play(place,
         {{"", "list P.A: y"},
          {"mnuDelete", "list P.C: z" + sure + "A and all its items?"},
          {"Q; mnuDelete", "list R: R" + sure + "Q?"},
          {"mnuDelete", "list P: P" + sure + "R?"},
          {"copy P.C.z to P; P.z", "list P.z: z"},
          {"P.C: z; drag P.C.z to ModBus; openObject",
           "list P.C: *z | opens  | said " + failure("35601  Element not found", "ListView1_DblClick")[0]}});
}

// Rows keep their selection when they are sorted (always ascending), shown in another mode or refreshed, and
// the enabled commands match it.
TEST(Views, RowsStaySelectedWhenSortedOrRefreshed) {
    PlantedWorkplace place(
        {"ModBus.holding register", "P", "P.A/", "P.A.a", "P.A.b", "P.A.c", "P.B/", "P.B.d"});
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
    // The rows of another node are not selected, even if the same item is among them.
    play(place, {{"P.A: a; openObject: txtItemName=renamed", "list P.A: *renamed"},
                 {"P.B: d", "list P.B: *d"},
                 {"P.B.d", "list P.B.d: d"}});
    EXPECT_TRUE(place.list.sorted() && place.list.sortKey() == 1U);
}

TEST(Views, StatusBarFollowsTheEditor) {
    PlantedWorkplace place({"U", "U.B/", "U.B.x", "U.B.xy"});
    auto& status = place.window.status;
    play(place,
         {{"top", "selection " + place.path("TrevandixTcpIp.xml") + " | counts 1 unit, 1 branch, 2 items"},
          {"mnuFind; find: x", "selection U.B.x | notice "},
          {"next: x; next: x", "notice No further match"},
          {"find: q", "notice No match"},
          {"mnuAddItem", "notice Nothing added: an item is selected, not a unit or a branch"},
          {"U", "selection U: 10.0.0.1, identifier 0, 0 ms | notice "},
          {"U.B: x xy; mnuCopy", "selection U.B, 2 rows selected | notice 2 items copied"},
          {"top; mnuAddPlc: txtName=V", "state Unsaved changes | counts 2 units, 1 branch, 2 items"}});
    for (const bool refuses : {true, false}) {
        place.registry.refuses = refuses;
        place.run("mnuSaveCfg");
        EXPECT_EQ(status[StatusField::Saved], "Saved");
        EXPECT_EQ(status[StatusField::Notice].find("Published to the server: ") != 0, refuses);
    }
    place.messages.take();
    place.editor.fileDropped(place.path("TrevandixTcpIp.xml"));
    play(place, {{"", "notice  | counts 2 units, 1 branch, 2 items"}});
    place.openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "boiler-house-rtu.xml"), "rtu.xml");
    play(place, {{"Boiler1", "selection Boiler1: COM1, 19200, 8E1, identifier 1"}});
    place.openText(fileText({}, {}), "small.xml");
    plant(place, {"U", "U.B/", "U.B.x"});
    for (const bool capitals : {false, true, false}) {  // said once, if there is a reason
        if (capitals) plant(place, {"U.small/"});
        place.run("mnuSaveCfg");
        EXPECT_EQ(status[StatusField::Notice].starts_with("Branch names come back in capitals"), capitals);
    }
    // The status bar is up to date while the message box is open.
    place.messages.take();
    play(place, {{"U; mnuAddBranch: txtBranchName=D", ""}});
    place.messages.onShow = [&](std::string_view text) {
        EXPECT_EQ(status[StatusField::Saved], text.ends_with(" saved") ? "Saved" : "Unsaved changes");
    };
    place.run("mnuSaveCfg");
    place.messages.take();
    play(place, {{"mnuCloseCfg", "selection  | counts  | state "}});
}

TEST(Views, SavedStateFollowsTheContent) {
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
        "edit W.i: txtAddress=0",
        "edit W: txtUI=1",
        "edit U.C: txtBranchName=C",
        "edit holding register: txtReadCode=0",
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
        "edit V: txtUI=3",  // moves V to the end of the collection
        "edit U.C: txtBranchName=D",
        "edit holding register: txtReadCode=2",
        // A node that lost its record gets the new record.
        "edit holding register: cmbMBType=coil; mnuSaveCfg; ModBus; mnuAddMBType: cmbMBType=holding register",
    };
    for (const auto& [state, cases] :
         {std::pair("state Saved", unchanged), {"state Unsaved changes", changing}}) {
        for (const std::string& steps : cases) {
            PlantedWorkplace place({"U", "U.A/", "U.A.b", "U.A.a", "U.B/", "U.C/", "U.C.a", "V", "W", "W.i",
                                    "ModBus.holding register"});
            play(place, {{"edit W: txtUI=1", "state Unsaved changes"}});
            place.saved();
            play(place, {{"", "state Saved"}});
            place.messages.onShow = [&](std::string_view) { place.messages.texts.clear(); };
            play(place, {{steps, state}});
            EXPECT_EQ(place.configuration.changed(), cases == changing) << steps;
        }
    }
}

TEST(Commands, EveryButtonRunsItsCommand) {
    const Fields cases{
        {"button new", "opens frmSelect"},
        {"button open", "said " + failure("53  File not found", "ImportXML")[0]},
        {"button save",
         "notice Saved, but not published: the system refused. Click here to publish as administrator."},
        {"button close", "state  | list :"},
        {"ModBus; button modbus", "opens frmModBus"},
        {"top; button plc", "opens frmPLC"},
        {"button branch", "opens frmBranch"},
        {"button item", "opens frmItems"},
        {"button copy; U.B; button paste", "tree U: A(x) B(x)"},
        {"button cut; U.B; button paste", "tree U: A B(x)"},
        {"button delete", "tree U: A B | notice "},
        {"mnuReport; button icon", "mode 0"},
        {"button smallicon", "mode 1"},
        {"button list", "mode 2"},
        {"button icon; button report", "mode 3"},
        {"button find", "opens frmFind"},
        {"button exit", "state  | list U.A: *x"},
        {"button pastitem: ", "tree U: A(y) B"},
        {"button pastcomment: ", "unsaved | tree U: A(x) B"},
        {"openObject", "opens frmItems"},
        {"U.A; openObject", "opens frmBranch"},
    };
    const auto buttons = std::ranges::count_if(
        commandRows(), [](const CommandRow& command) { return !command.button.key.empty(); });
    EXPECT_EQ(cases.size(), buttons + 1U);  // F2 has two rows, Paste has none of its own
    for (const auto& [steps, seen] : cases) {
        PlantedWorkplace place({"U", "U.A/", "U.B/", "U.A.x"});
        place.fileDialog.choice = place.path("missing.xml");
        place.registry.refuses = true;
        place.messages.onShow = [&](std::string_view text) {
            if (text.find("Error") == std::string_view::npos) place.messages.texts.pop_back();
        };
        play(place, {{"clipboard: y; U.A: x; " + steps, seen}});
        EXPECT_EQ(place.window.closed, steps == "button exit");
    }
}

TEST(Commands, AClickPublishesWhatWasRefused) {
    PlantedWorkplace place({"U"});
    const auto click = [&] {
        place.editor.statusClicked(StatusField::Notice);
        return place.window.status[StatusField::Notice];
    };
    place.registry.refuses = true;
    place.registry.answer = Publication::RightsDenied;
    place.saved();
    const std::string refused =
        "Saved, but not published: administrator's rights were not given. Click here to publish as "
        "administrator.";
    EXPECT_EQ(click(), refused);
    EXPECT_EQ(place.editor.contextEntries().front().command, "mnuPublish");
    play(place, {{"mnuUndo", "notice Undone: Add unit U. Ctrl+Y redoes it"}});
    place.registry.answer = Publication::Done;
    place.registry.mapped = true;
    EXPECT_EQ(click(), refused);  // this click only ends what Undo told
    EXPECT_TRUE(click().ends_with("test.xml; the server's account may not see this network drive"));
    click();
    EXPECT_EQ(place.registry.published.size(), 1U);
    play(place, {{"mnuPublish", "notice Nothing to publish: Save does it"}});
}

// Names, shortcuts, buttons, button places and the access keys of each menu are unique. Every command has a
// menu, a shortcut or an entry in the context menus.
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
    const Workplace place;
    std::set<std::string_view> context;
    for (const ContextEntry& entry : place.editor.contextEntries()) context.insert(entry.command);
    for (const CommandSpec& command : commandTables().commands) {
        take("name", command.name);
        take("shortcut", command.shortcut);
        take("button", command.button.key);
        if (!command.button.key.empty()) take("place", std::to_string(command.button.place));
        takeAccessKey(command.menu, command.caption);
        EXPECT_TRUE(taken.contains("menu: " + std::string(command.menu)) ||
                    (command.menu.empty() && (!command.shortcut.empty() || context.contains(command.name))))
            << command.name;
    }
}

}  // namespace trevandix::testing
