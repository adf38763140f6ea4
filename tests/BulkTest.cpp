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
    change(place, {
                      {"U.A", "mnuChangeItems", "", "said Nothing would change."},
                      {"U.A", "mnuChangeItems", "txtComment=new", ""},
                      {"U.A: a2", "mnuChangeItems", "cmbDataType=string|txtElements=9", ""},
                      {"U.A", "mnuChangeItems", "cmbModbusType=coil", ""},
                      {"U.A", "mnuChangeItems", "cmbModbusType=coil|cmbDataType=boolean", ""},
                      {"top", "mnuChangeItems", "cmbAccessRight=WRITE", ""},
                      {"U.A.B.a3", "mnuChangeItems", "txtMove=-1", ""},
                      {"U", "mnuChangeItems", "txtMove=3", ""},
                      {"U", "mnuChangeItems", "txtStart=5|cmbBit=14", ""},
                      {"U", "mnuChangeItems", "txtMove=3|txtStart=5", ""},
                      {"U", "mnuChangeItems", "cmbWhere=Comments|txtFind=E|txtReplace=o", ""},
                      {"U", "mnuChangeItems", "cmbWhere=Comments|txtFind=E|txtReplace=o|chkCase", ""},
                      {"U.A", "mnuChangeItems", "txtFind=a1|txtReplace=a2", ""},
                      {"U.A", "mnuChangeItems", "txtFind=a|txtReplace=b", ""},
                      {"U.A", "mnuChangeItems", "txtFind=b|txtReplace=b b", ""},
                  });
}

TEST(Bulk, Copies) {
    PlantedWorkplace place(
        {"ModBus.holding register", "U", "U.P1/", "U.P1.a", "U.P1.M/", "U.P1.M.b", "U.P1.E/", "U.c"});
    place.item("U.P1.a").nAddress(10);
    place.item("U.P1.M.b").nAddress(12);
    change(place, {
                      {"U.P1", "mnuDuplicate", "txtMove=2", ""},
                      {"U.P1", "mnuDuplicate", "txtMove=-20|txtCopies=2", ""},
                      {"U.P1", "mnuDuplicate", "txtName=P1", ""},
                      {"U.P1", "mnuDuplicate", "txtName=a b", ""},
                      {"U.P1", "mnuDuplicate", "txtCopies=0", ""},
                      {"U", "mnuDuplicate", "txtCopies=2", ""},
                      {"U", "mnuDuplicate", "txtUI=0|txtName=W", ""},
                      {"U", "mnuDuplicate", "txtName=", ""},
                      {"U", "mnuDuplicate", "", ""},
                  });
}

}  // namespace trevandix::testing
