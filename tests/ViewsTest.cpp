// What the tree and the list show, and which commands each situation offers.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "Plant.h"
#include "editor/CommandTable.h"
#include "editor/Enabling.h"

namespace trevandix::testing {

namespace {

struct WaterWorks : Workplace {
    WaterWorks() { openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml")); }

    Texts headers() const {
        Texts result;
        for (const ListColumn& column : list.columns()) result.push_back(column.header);
        return result;
    }
    // The menu entries that can be chosen.
    std::set<std::string> on() const {
        std::set<std::string> result;
        for (const auto& [name, enabled] : window.menus) {
            if (enabled) result.insert(name);
        }
        return result;
    }
};

using Names = std::set<std::string>;

Names operator+(Names names, const Names& more) {
    names.insert(more.begin(), more.end());
    return names;
}

}  // namespace

TEST(Views, ListAndCommandsOfEveryKindOfNode) {
    const Texts units{"Unit Name", "ModBus Unit Identifier"};
    const Texts types{"Data Type Name", "Read Code", "Write Code", "Single Write Code"};
    const Texts item{"Item Name", "Comment", "Address", "DataType", "ModBus Type", "Access Rights"};
    Texts branch = item;
    branch.push_back("Index");
    const Names start{"mnuFile", "mnuNewCfg", "mnuOpenCfg"};
    const Names open = start + Names{"mnuSaveCfg", "mnuSaveAs", "mnuTools", "mnuCloseCfg", "mnuFind"};
    const Names list = open + Names{"mnuView", "mnuIcon", "mnuSmallIcon", "mnuList", "mnuReport"};
    const Names inUnit = list + Names{"mnuObjects", "mnuAddBranch", "mnuAddItem", "mnuDelete"};
    const Names inBranch = inUnit + Names{"mnuEdit", "mnuPaste"};
    const Names bulk{"mnuPasteName", "mnuPasteComment"};
    const Names onItem = list + bulk + Names{"mnuObjects", "mnuEdit", "mnuCopy", "mnuCut", "mnuDelete"};
    const std::string bearings = "Intake.PUMPS.PUMP1.MOTOR.BEARINGS";

    WaterWorks place;
    place.click(bearings);
    const ListRow first = place.list.rows().at(0);
    place.selectRows({first.text});
    EXPECT_EQ(place.on(), onItem);
    place.run("mnuIcon");

    struct Case {
        std::string key;
        Texts headers;
        std::size_t rows;
        Names on;
    };
    const std::vector<Case> cases{
        {"coil", {}, 0, open + Names{"mnuObjects", "mnuDelete"}},
        {"", units, 4, list + Names{"mnuObjects", "mnuAddPlc", "mnuEdit", "mnuPaste"}},
        {"ModBus", types, 4, list + Names{"mnuObjects", "mnuAddMBType"}},
        {"Intake", units, 1, inUnit},
        {"Reservoir.FUTURE_CHAMBER_C", branch, 0, inBranch},
        {bearings, branch, place.node(bearings).childCount(), inBranch + bulk + Names{"mnuAddMBType"}},
        {first.key, item, 1, onItem},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        place.click(c.key);
        EXPECT_EQ(place.headers(), c.headers);
        EXPECT_EQ(place.list.rows().size(), c.rows);
        EXPECT_EQ(place.on(), c.on);
        // Without columns the mode stays.
        EXPECT_EQ(place.list.mode(), c.headers.empty() ? ListMode::Icon : ListMode::Report);
    }
    place.click("ModBus");
    EXPECT_EQ(place.list.cell(0, 0), "input status");
    EXPECT_EQ(place.list.cell(0, 2), "");  // a code of 0 leaves its cell empty
    place.run("mnuCloseCfg");
    EXPECT_EQ(place.on(), start);
}

// A sub-branch that comes first keeps the bulk pastes off although items follow it. After a copy by dragging
// two nodes share a record, which names the copy; each row still leads to its own node.
TEST(Views, RowsOfABranch) {
    PlantedWorkplace place({"P", "P.A/", "P.A.AAA/", "P.A.Run", "P.A.alpha", "P.B/"});
    place.drag("P.A.Run", "P.B", true);
    for (const auto& [branch, rows] : std::vector<std::pair<std::string, Texts>>{
             {"P.A", {"P.A.alpha", "P.A.Run"}}, {"P.B", {"P.B.Run"}}}) {
        place.click(branch);
        Texts keys;
        for (const ListRow& row : place.list.rows()) keys.push_back(row.key);
        EXPECT_EQ(keys, rows);
        EXPECT_EQ(place.window.menus["mnuPasteName"], branch == "P.B");
    }
}

TEST(Views, ColumnSortIsAlwaysAscendingAndStays) {
    WaterWorks place;
    place.click("ModBus");
    for (int press = 0; press < 2; ++press) {
        place.editor.ListView1_ColumnClick(1);
        EXPECT_EQ(std::string(place.list.cell(0, 1)) + "-" + std::string(place.list.cell(3, 1)), "1-4");
    }
    place.click("");
    EXPECT_TRUE(place.list.sorted() && place.list.sortKey() == 1U);
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
    addUnit(place, "Outlet", "9");
    EXPECT_EQ(status[StatusField::Counts].find("5 units, "), 0U);
    EXPECT_EQ(status[StatusField::Saved], "Unsaved changes");
    for (const bool refuses : {true, false}) {
        place.registry.refuses = refuses;
        place.run("mnuSaveCfg");
        EXPECT_EQ(status[StatusField::Saved], "Saved");
        EXPECT_EQ(status[StatusField::Notice].find("Published to the server: ") != 0, refuses);
    }
    place.editor.fileDropped(place.path("test.xml"));
    EXPECT_EQ(status[StatusField::Notice], "");
    EXPECT_EQ(status[StatusField::Counts].find("5 units, "), 0U);
    place.openText(fileText({}, {}), "small.xml");
    plant(place, {"U", "U.B/", "U.B.x"});
    place.run("mnuFind");
    EXPECT_EQ(status[StatusField::Counts], "1 unit, 1 branch, 1 item");
    place.run("mnuCloseCfg");
    EXPECT_EQ(status[StatusField::Selection] + status[StatusField::Counts] + status[StatusField::Saved], "");
}

// Every menu entry and button that a flag names exists, a button goes with its own command's entry, no name,
// shortcut or key is there twice.
TEST(Commands, TablesFitTogether) {
    std::set<std::string_view> entries;
    std::set<std::string_view> shortcuts;
    for (const MenuSpec& menu : commandTables().menus) {
        EXPECT_TRUE(entries.insert(menu.name).second) << menu.name;
        std::set<int> accessKeys;
        for (const MenuEntrySpec& entry : menu.entries) {
            if (entry.name.empty()) continue;
            EXPECT_TRUE(entries.insert(entry.name).second) << entry.name;
            EXPECT_TRUE(entry.shortcut.empty() || shortcuts.insert(entry.shortcut).second) << entry.name;
            const auto at = entry.caption.find('&');
            if (at == std::string_view::npos) continue;
            EXPECT_TRUE(accessKeys.insert(std::tolower(entry.caption[at + 1])).second) << entry.name;
        }
    }
    std::map<std::string_view, std::string_view> buttons;
    for (const ToolButtonSpec& button : commandTables().buttons) {
        EXPECT_TRUE(buttons.emplace(button.key, button.command).second) << button.key;
        EXPECT_TRUE(entries.contains(button.command)) << button.key;
    }
    EXPECT_EQ(buttons.size(), 20U);
    for (std::size_t flag = 0; flag < kFlagCount; ++flag) {
        const FlagTargets& targets = targetsOf(static_cast<EnablingFlag>(flag));
        for (const auto& menu : targets.menus) EXPECT_TRUE(entries.contains(menu)) << menu;
        for (const auto& button : targets.buttons)
            EXPECT_NE(std::ranges::find(targets.menus, buttons.at(button)), targets.menus.end()) << button;
    }
}

}  // namespace trevandix::testing
