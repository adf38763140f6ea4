// What the tree and the list show, and which commands each situation offers.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "FakePlatform.h"
#include "editor/CommandTable.h"
#include "editor/Enabling.h"

namespace trevandix::testing {

namespace {

struct WaterWorks : Workplace {
    WaterWorks() { openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml")); }

    std::vector<std::string> headers() const {
        std::vector<std::string> result;
        for (const ListColumn& column : list.columns()) result.push_back(column.header);
        return result;
    }
    // The flags that are on, by what the menu entries show.
    std::set<std::string> on() const {
        std::set<std::string> result;
        for (const auto& [name, enabled] : window.menus) {
            if (enabled) result.insert(name);
        }
        return result;
    }
};

const std::set<std::string> kAlways{"mnuFile", "mnuNewCfg", "mnuOpenCfg"};
const std::set<std::string> kOpen{"mnuFile",   "mnuNewCfg", "mnuOpenCfg",  "mnuSaveCfg",
                                  "mnuSaveAs", "mnuTools",  "mnuCloseCfg", "mnuFind"};

std::set<std::string> open(std::initializer_list<std::string> more) {
    std::set<std::string> result = kOpen;
    result.insert(more);
    return result;
}

const std::initializer_list<std::string> kViews{"mnuView", "mnuIcon", "mnuSmallIcon", "mnuList", "mnuReport"};

std::set<std::string> openWithViews(std::initializer_list<std::string> more) {
    std::set<std::string> result = open(more);
    result.insert(kViews);
    return result;
}

}  // namespace

TEST(Views, ListAndCommandsOfEveryKindOfNode) {
    WaterWorks place;
    using Headers = std::vector<std::string>;
    const Headers units{"Unit Name", "ModBus Unit Identifier"};
    const Headers types{"Data Type Name", "Read Code", "Write Code", "Single Write Code"};
    const Headers item{"Item Name", "Comment", "Address", "DataType", "ModBus Type", "Access Rights"};
    Headers branch = item;
    branch.push_back("Index");

    place.click("");
    EXPECT_EQ(place.headers(), units);
    EXPECT_EQ(place.list.rows().size(), 4U);
    EXPECT_EQ(place.on(), openWithViews({"mnuObjects", "mnuAddPlc", "mnuEdit", "mnuPaste"}));

    place.click("ModBus");
    EXPECT_EQ(place.headers(), types);
    EXPECT_EQ(place.list.cell(0, 0), "input status");
    EXPECT_EQ(place.list.cell(0, 2), "");  // a code of 0 leaves its cell empty
    EXPECT_EQ(place.on(), openWithViews({"mnuObjects", "mnuAddMBType"}));

    place.run("mnuIcon");
    place.click("coil");
    EXPECT_TRUE(place.headers().empty() && place.list.rows().empty());
    EXPECT_EQ(place.list.mode(), ListMode::Icon);  // without columns the mode stays
    EXPECT_EQ(place.on(), open({"mnuObjects", "mnuDelete"}));

    place.click("Intake");
    EXPECT_EQ(place.headers(), units);
    EXPECT_EQ(place.list.mode(), ListMode::Report);
    ASSERT_EQ(place.list.rows().size(), 1U);
    EXPECT_EQ(place.list.cell(0, 1), "1");
    const auto branchRow =
        openWithViews({"mnuObjects", "mnuAddBranch", "mnuAddItem", "mnuEdit", "mnuPaste", "mnuDelete"});
    EXPECT_EQ(place.on(), openWithViews({"mnuObjects", "mnuAddBranch", "mnuAddItem", "mnuDelete"}));

    place.click("Reservoir.FUTURE_CHAMBER_C");
    EXPECT_EQ(place.headers(), branch);
    EXPECT_TRUE(place.list.rows().empty());
    EXPECT_EQ(place.on(), branchRow);

    place.click("Intake.PUMPS.PUMP1.MOTOR.BEARINGS");
    EXPECT_EQ(place.headers(), branch);
    EXPECT_FALSE(place.list.rows().empty());
    auto withPastes = branchRow;
    withPastes.insert({"mnuAddMBType", "mnuPasteName", "mnuPasteComment"});
    EXPECT_EQ(place.on(), withPastes);

    const std::string key = place.list.rows()[0].key;
    const auto itemRow = openWithViews(
        {"mnuObjects", "mnuEdit", "mnuCopy", "mnuCut", "mnuDelete", "mnuPasteName", "mnuPasteComment"});
    place.selectRows({place.list.rows()[0].text});
    EXPECT_EQ(place.on(), itemRow);
    place.click(key);
    EXPECT_EQ(place.headers(), item);
    EXPECT_EQ(place.list.rows().size(), 1U);
    EXPECT_EQ(place.on(), itemRow);

    place.run("mnuCloseCfg");
    EXPECT_EQ(place.on(), kAlways);
}

// A sub-branch that comes first keeps the bulk pastes off although items follow it.
TEST(Views, FirstChildDecidesAboutBulkPastes) {
    Workplace place;
    place.openText(fileText({}, {"<PLC name='P' address='' id='1' timeout='1'><tags><A><AAA/>" +
                                 tagText(5, "Run") + tagText(5, "alpha") + "</A></tags></PLC>"}));
    place.click("P.A");
    EXPECT_FALSE(place.window.menus["mnuPasteName"]);
    ASSERT_EQ(place.list.rows().size(), 2U);
    EXPECT_EQ(place.list.rows()[0].text, "alpha");
}

// After a copy by dragging two nodes share a record, which names the copy; each row still leads to its own
// node.
TEST(Views, RowsOfSharedRecordsLeadToTheirOwnNode) {
    Workplace place;
    place.openText(fileText({}, {"<PLC name='P' address='' id='1' timeout='1'><tags><A>" + tagText(5, "Run") +
                                 "</A><B/></tags></PLC>"}));
    place.editor.TreeView1_MouseDown(&place.node("P.A.Run"), ShiftState{false, true, false});
    place.editor.TreeView1_OLEStartDrag();
    place.editor.TreeView1_OLEDragOver(&place.node("P.B"));
    place.editor.TreeView1_OLEDragDrop();
    for (const char* branch : {"P.A", "P.B"}) {
        place.click(branch);
        ASSERT_EQ(place.list.rows().size(), 1U);
        EXPECT_EQ(place.list.rows()[0].key, std::string(branch) + ".Run");
    }
}

TEST(Views, ColumnSortIsAlwaysAscendingAndStays) {
    WaterWorks place;
    place.click("ModBus");
    for (int press = 0; press < 2; ++press) {
        place.editor.ListView1_ColumnClick(1);
        EXPECT_EQ(place.list.cell(0, 1), "1");
        EXPECT_EQ(place.list.cell(3, 1), "4");
    }
    place.click("");
    EXPECT_TRUE(place.list.sorted());
    EXPECT_EQ(place.list.sortKey(), 1U);
}

// The status bar follows every way in which selection, contents and file change.
TEST(Views, StatusBarFollowsTheEditor) {
    WaterWorks place;
    auto& status = place.window.status;
    EXPECT_EQ(status[StatusField::Selection], place.path("test.xml"));
    EXPECT_EQ(status[StatusField::Counts].find("4 units, "), 0U);
    EXPECT_EQ(status[StatusField::Saved], "Saved");

    place.click("Intake.PUMPS.PUMP1");
    EXPECT_EQ(status[StatusField::Selection], "Intake.PUMPS.PUMP1");
    place.run("mnuFind");
    place.forms.last->type("txtFind", "PUMP2");
    place.forms.last->press("cmdFind");
    EXPECT_EQ(status[StatusField::Selection], "Intake.PUMPS.PUMP2");
    place.click("");
    place.forms.scripts.push_back([](FakeForm& form) {
        form.type("txtName", "Outlet");
        form.type("txtUI", "9");
        form.press("cmdOk");
    });
    place.run("mnuAddPlc");
    EXPECT_EQ(status[StatusField::Counts].find("5 units, "), 0U);
    EXPECT_EQ(status[StatusField::Saved], "Unsaved changes");

    place.registry.refuses = true;
    place.run("mnuSaveCfg");
    EXPECT_EQ(status[StatusField::Saved], "Saved");
    EXPECT_NE(status[StatusField::Notice].find("not published"), std::string::npos);
    place.registry.refuses = false;
    place.run("mnuSaveCfg");
    EXPECT_EQ(status[StatusField::Notice], "Published to the server: " + place.path("test.xml"));
    place.editor.fileDropped(place.path("test.xml"));
    EXPECT_EQ(status[StatusField::Notice], "");
    EXPECT_EQ(status[StatusField::Counts].find("5 units, "), 0U);
    place.run("mnuCloseCfg");
    EXPECT_EQ(status[StatusField::Selection] + status[StatusField::Counts] + status[StatusField::Saved], "");
}

// Every menu entry and button that a flag names exists, every command has one handler, no shortcut or key is
// there twice.
TEST(Commands, TablesFitTogether) {
    std::map<std::string_view, int> entries;
    std::map<std::string_view, int> shortcuts;
    for (const MenuSpec& menu : commandTables().menus) {
        ++entries[menu.name];
        std::map<char, int> accessKeys;
        for (const MenuEntrySpec& entry : menu.entries) {
            if (entry.name.empty()) continue;
            ++entries[entry.name];
            if (!entry.shortcut.empty()) ++shortcuts[entry.shortcut];
            const auto at = entry.caption.find('&');
            if (at != std::string_view::npos)
                ++accessKeys[static_cast<char>(std::tolower(entry.caption[at + 1]))];
        }
        for (const auto& [letter, count] : accessKeys) EXPECT_EQ(count, 1) << menu.name << " " << letter;
    }
    std::map<std::string_view, int> buttons;
    for (const ToolButtonSpec& button : commandTables().buttons) {
        ++buttons[button.key];
        EXPECT_TRUE(entries.contains(button.command)) << button.key;
    }
    for (const auto& table : {entries, shortcuts, buttons}) {
        for (const auto& [name, count] : table) EXPECT_EQ(count, 1) << name;
    }
    EXPECT_EQ(buttons.size(), 20U);
    for (std::size_t flag = 0; flag < kFlagCount; ++flag) {
        const FlagTargets& targets = targetsOf(static_cast<EnablingFlag>(flag));
        for (const auto& menu : targets.menus) EXPECT_TRUE(entries.contains(menu)) << menu;
        for (const auto& button : targets.buttons) {
            EXPECT_TRUE(buttons.contains(button)) << button;
            // A button goes with its own command's entry.
            const auto shape = std::ranges::find(commandTables().buttons, button, &ToolButtonSpec::key);
            EXPECT_NE(std::ranges::find(targets.menus, shape->command), targets.menus.end()) << button;
        }
    }
}

}  // namespace trevandix::testing
