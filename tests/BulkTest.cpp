// Tests the commands that change or add many objects at once, through their dialogs and the preview.
#include <gtest/gtest.h>

#include "Plant.h"
#include "table/Duplication.h"
#include "table/ItemsEdit.h"

namespace trevandix::testing {

namespace {

std::string cells(const ListContents& rows) {
    std::string all;
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        std::string line;
        for (std::size_t column = 0; column < rows.columns().size(); ++column)
            line += (column == 0 ? "" : "|") + std::string(rows.cell(row, column));
        all += (row == 0 ? "" : " / ") + line.substr(0, line.find_last_not_of('|') + 1);
    }
    return all;
}

/// Runs the command with these entries and confirms what can be applied. Returns the rows of the preview, or
/// what was said instead.
std::string confirmed(Workplace& place, const std::string& command, const std::string& entries) {
    std::string seen;
    bool asked = false;  // after a preview that is not confirmed the dialog is there again
    place.forms.scripts.assign({[&](FakeForm& form) {
                                    if (std::exchange(asked, true)) return;
                                    if (!entries.empty()) form.fill(entries);
                                    form.press("cmdOk");
                                },
                                [&](FakeForm& preview) {
                                    seen = cells(*preview.contents);
                                    if (preview.visible("chkAccepted")) preview.toggle("chkAccepted");
                                    if (preview.enabled("cmdConfirm")) preview.press("cmdConfirm");
                                }});
    place.run(command);
    place.forms.scripts.clear();
    for (const std::string& said : place.messages.take()) seen += "said " + said;
    return seen;
}

struct Change {
    std::string where;  ///< a node, or node: rows
    std::string command;
    std::string entries;
    std::string shown;
};

/// Makes each change, and undoes and redoes it.
void change(Workplace& place, const std::vector<Change>& changes) {
    Configuration& c = place.configuration;
    for (const Change& each : changes) {
        SCOPED_TRACE(each.where + " " + each.command + " " + each.entries);
        play(place, {{each.where, ""}});
        const Texts before = fileContents(c);
        const std::uint64_t revision = c.revision();
        EXPECT_EQ(confirmed(place, each.command, each.entries), each.shown);
        EXPECT_EQ(disagreements(c), Texts());
        if (c.revision() == revision) continue;
        const Texts after = fileContents(c);
        place.run("mnuUndo");
        EXPECT_EQ(fileContents(c), before);
        place.run("mnuRedo");
        EXPECT_EQ(fileContents(c), after);
    }
}

}  // namespace

TEST(Bulk, FieldsOfItems) {
    PlantedWorkplace place({"ModBus.coil", "ModBus.holding register", "ModBus.input register", "U", "U.A/",
                            "U.A.a1", "U.A.a2", "U.A.B/", "U.A.B.a3", "V", "V.x"});
    place.item("U.A.a2").sComment("Pump 1");
    place.item("U.A.a2").nAddress(7);
    place.item("V.x").sAccessRight("odd");
    const std::string range = "Refused: Memory address field is not valid. It must be between 0 and 65535.";
    change(
        place,
        {{"U.A", "mnuChangeItems", "", "said Nothing would change."},
         {"ModBus", "mnuChangeItems", "", ""},
         {"U.A", "mnuChangeItems", "txtComment=new",
          "U.A.a1|Comment||new / U.A.a2|Comment|Pump 1|new / U.A.B.a3|Comment||new"},
         {"U.A: a2", "mnuChangeItems", "cmbDataType=string|txtElements=9",
          "U.A.a2|Data Type|signed 16 bit|string / U.A.a2|Elements||9"},
         {"U.A", "mnuChangeItems", "cmbModbusType=coil",
          "U.A.a1||||Refused: Data Type \"signed 16 bit\" is not in the dialog's list / U.A.a2||||Refused: "
          "Data Type \"string\" is not in the dialog's list / U.A.B.a3||||Refused: Data Type \"signed 16 "
          "bit\" is not in the dialog's list"},
         {"U.A: a1", "mnuChangeItems", "cmbModbusType=coil", "said Data Type field is empty."},
         {"V.x", "mnuChangeItems", "txtComment=c", "V.x|Comment||c"},
         {"V.x", "mnuChangeItems", "cmbModbusType=input register", "said Access Rights field is empty."},
         {"top", "mnuChangeItems", "cmbAccessRight=WRITE",
          "U.A.a1|Access Rights|READ|WRITE / U.A.a2|Access Rights|READ|WRITE / U.A.B.a3|Access "
          "Rights|READ|WRITE / V.x|Access Rights|odd|WRITE|the data type \"holding register\" has no write "
          "code, but the access right is WRITE; enter it there, or set READ"},
         // Addresses
         {"U.A", "mnuChangeItems", "txtMove=-1",
          "U.A.a1|Address|0|-1|" + range + " / U.A.B.a3|Address|0|-1|" + range + " / U.A.a2|Address|7|6"},
         {"U.A", "mnuChangeItems", "txtMove=3|txtStart=5",
          "said Addresses are either moved or numbered anew."},
         {"U", "mnuChangeItems", "txtStart=5|cmbBit=15",
          "U.A.a1|Address|0|6 / U.A.a2|Address|6|7 / U.A.B.a3|Address|0|12"},
         {"U.A.B.a3", "mnuChangeItems", "cmbDataType=boolean",
          "U.A.B.a3|Bit||0 / U.A.B.a3|Data Type|signed 16 bit|boolean"},
         {"U.A", "mnuChangeItems", "cmbDataType=boolean|txtStart=5|cmbBit=15",
          "U.A.a1|Address|6|5 / U.A.a1|Bit||15 / U.A.a1|Data Type|signed 16 bit|boolean / "
          "U.A.a2|Address|7|6 / U.A.a2|Bit||0 / U.A.a2|Data Type|string|boolean / U.A.a2|Elements|9 / "
          "U.A.B.a3|Address|12|6 / U.A.B.a3|Bit|0|1"},
         // Names and comments
         {"U", "mnuChangeItems", "cmbWhere=Comments|txtFind=E|txtReplace=o|chkCase",
          "said Nothing would change."},
         {"U.A: a1", "mnuChangeItems", "cmbWhere=Comments|txtFind=E|txtReplace=o", "U.A.a1|Comment|new|now"},
         {"U.A", "mnuChangeItems", "txtFind=a1|txtReplace=a2",
          "U.A.a1|Name|a1|a2|Refused: The name is taken"},
         {"U.A: a1 a2", "mnuChangeItems", "txtFind=a|txtReplace=b", "U.A.a1|Name|a1|b1 / U.A.a2|Name|a2|b2"},
         {"U.A: b1", "mnuChangeItems", "txtFind=b|txtReplace=b b",
          "U.A.b1|Name|b1|b b1|Refused: Name \"b b1\" has other characters than letters A to Z, digits, "
          "\"-\" and \"_\""}});
    EXPECT_EQ(place.configuration.undoName(), "Change 2 items");
    play(place, {{"U.A.b1", ""}});
    work(place, "mnuChangeItems", {{"", "lblItems=1 item|cmbModbusType=holding register|off=txtElements"}});
    play(place, {{"U.A", ""}});
    work(place, "mnuChangeItems", {{"", "lblItems=3 items|cmbDataType=boolean|txtComment=(different)"}});
}

TEST(Bulk, TextsAreReplaced) {
    const auto replaced = [](const char* text, const char* find, const char* by, bool ignoreCase) {
        return Replacement{&ItemFields::name, find, by, ignoreCase}.in(text);
    };
    EXPECT_EQ(replaced("aaaXaa", "aa", "a", false), "aaXa");
    EXPECT_EQ(replaced("\xCE\xA3\xCF\x83\xFF", "\xCF\x83", "s", true), "ss\xFF");
    EXPECT_EQ(replaced("abc", "abcd", "x", true), "abc");
    EXPECT_EQ(replaced("abc", "", "x", true), "abc");
}

TEST(Bulk, Copies) {
    PlantedWorkplace place(
        {"ModBus.holding register", "U", "U.P1/", "U.P1.a", "U.P1.M/", "U.P1.M.b", "U.P1.E/", "V", "V.c"});
    place.item("U.P1.a").nAddress(10);
    place.item("U.P1.M.b").nAddress(12);
    const std::string range = "|Refused: Memory address field is not valid. It must be between 0 and 65535.";
    change(
        place,
        {{"U.P1", "mnuDuplicate", "txtMove=2",
          "U.P2||||Added, copy of U.P1 / U.P2.a|Address||12|Added, lies on U.P1.M.b (holding register 12) / "
          "U.P2.E||||Added / U.P2.M||||Added / U.P2.M.b|Address||14|Added"},
         {"U.P1.M", "mnuDuplicate", "txtName=N09|txtMove=-8|txtCopies=2",
          "U.P1.N10.b|Address||-4" + range +
              " / U.P1.N09||||Added, copy of U.P1.M / U.P1.N09.b|Address||4|Added / U.P1.N10||||Added, copy "
              "of "
              "U.P1.M"},
         {"U.P1", "mnuDuplicate", "txtName=P1", "said The name is taken"},
         {"U.P1", "mnuDuplicate", "txtName=p1",
          "said The name is taken by \"P1\", as files hold branch names in capitals"},
         {"U.P1", "mnuDuplicate", "txtName=a b", "said New branch name holds \" \""},
         {"U.P1", "mnuDuplicate", "txtCopies=0", "said Number of copies must be between 1 and 1000."},
         {"V", "mnuDuplicate", "txtUI=254|txtCopies=2",
          "V3||||Refused: UI identifier must be between 0 and 254. / V2|Name||V2|Added, copy of V / "
          "V2|Identifier||254 / V2.c|Address||0|Added"},
         {"V", "mnuDuplicate", "txtUI=0", "said UI already existing. Please use a different one"},
         {"V", "mnuDuplicate", "txtName=", "said Name field is empty."},
         {"V.c", "mnuDuplicate", "", ""}});
    // Each copy has a record of its own.
    place.item("U.P2.a").sComment("other");
    EXPECT_EQ(place.item("U.P1.a").sComment(), "");
    EXPECT_EQ(place.selectedKey(), "V.c");
    EXPECT_EQ(place.configuration.undoName(), "Duplicate unit V");
    EXPECT_EQ(nameBehind("PUMP99", 2) + nameBehind("9999999999", 1), "PUMP10199999999992");
}

TEST(Bulk, SerialLines) {
    Workplace place;
    place.newConfiguration(kRtu);
    plant(place, {"U", "V", "W"});
    Configuration& c = place.configuration;
    for (const auto& [key, unit] : c.units) {
        UnitFields fields = clsPLC::proposed();
        fields.name = unit->getName();
        fields.baud = fields.name == "V" ? "1200" : "9600";
        fields.port = fields.name == "W" ? "COM2" : "COM1";
        behindTheDoor(*unit).SetByForm(fields, kRtu);
    }
    change(place,
           {{"W", "mnuLineSettings", "", "said Nothing would change."},
            {"W", "mnuLineSettings", "cmbParity=ODD", "W|Parity|NO|ODD"},
            {"W", "mnuLineSettings", "cmbData=9",
             "W|Data Bits|8|9|data bits \"9\" is not one of 8, 7, 6, 5; choose one of them"},
            {"W", "mnuLineSettings", "cmbData=8", "W|Data Bits|9|8"},
            {"top", "mnuLineSettings", "cmbData=7", "U|Data Bits|8|7 / V|Data Bits|8|7"},
            {"V", "mnuLineSettings", "cmbBaud=19200", "U|Baud Rate|9600|19200 / V|Baud Rate|1200|19200"}});
    EXPECT_EQ(c.undoName(), "Set line COM1");
}

TEST(Bulk, AddressesAreFound) {
    PlantedWorkplace place({"U", "U.A/", "U.A.x", "U.A.y", "U.z", "V", "V.w"});
    place.item("U.A.x").sDataType("holding register:32 bit float");
    place.item("U.A.x").nAddress(10);
    place.item("U.A.y").nAddress(20);
    place.item("U.z").sDataType("coil:boolean");
    const auto goTo = [&](const std::string& entries) {
        std::string said;
        place.forms.scripts.assign(1, [&](FakeForm& form) {
            form.fill(entries + "|cmdOk");
            if (form.open) said = form.text("txtFound");
        });
        place.run("mnuGoToAddress");
        return said.empty() ? place.selectedKey() : said;
    };
    place.click("U");
    EXPECT_EQ(goTo("txtAddress=11"), "U.A.x");
    EXPECT_EQ(goTo("cmbModbusType=coil|txtAddress=0"), "U.z");
    EXPECT_EQ(goTo("cmbUnit=V|cmbModbusType=holding register|txtAddress=0"), "V.w");
    EXPECT_EQ(
        goTo("cmbUnit=U|txtAddress=12"),
        "No item lies at holding register 12. In front of it: U.A.x (holding register 10 to 11). Behind "
        "it: U.A.y (holding register 20).");
    EXPECT_EQ(goTo("txtAddress=1"),
              "No item lies at holding register 1. In front of it: V.w (holding "
              "register 0). Behind it: nothing.");
    EXPECT_EQ(goTo("txtAddress=65536"), "Addresses are from 0 to 65535.");
    EXPECT_EQ(goTo("txtAddress="), "The address is not a number.");
}

TEST(Bulk, EntriesFollowTheNode) {
    PlantedWorkplace place({"ModBus.coil", "U", "U.A/", "U.A.x", "U.E/"});
    const auto usable = [&](const std::string& where) {
        play(place, {{where, ""}});
        std::string all;
        for (const ContextEntry& entry : place.editor.contextEntries()) {
            const bool ours = entry.command == "mnuChangeItems" || entry.command == "mnuDuplicate" ||
                              entry.command == "mnuLineSettings" || entry.command == "mnuGoToAddress";
            if (ours && entry.enabled) all += entry.caption.substr(0, entry.caption.find('.')) + ", ";
        }
        return all;
    };
    const Fields rows{{"top", "Change Items, Go to Address, "},
                      {"ModBus", "Go to Address, "},
                      {"ModBus: coil", "Go to Address, "},
                      {"U", "Change Items, Duplicate Unit, Go to Address, "},
                      {"top: U", "Change Items, Duplicate Unit, Go to Address, "},
                      {"U.A", "Change Items, Duplicate Branch, Go to Address, "},
                      {"U.E", "Duplicate Branch, Go to Address, "},
                      {"U.A: x", "Change Items, Go to Address, "}};
    for (const auto& [where, wanted] : rows) EXPECT_EQ(usable(where), wanted) << where;
    place.run("mnuCloseCfg");
    EXPECT_EQ(usable(""), "");
}

}  // namespace trevandix::testing
