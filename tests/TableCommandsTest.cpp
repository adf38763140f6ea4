// Tests tables in the window: what is copied and exported, and what the preview shows and does.
#include <gtest/gtest.h>

#include "Plant.h"
#include "model/ValueTypes.h"

namespace trevandix::testing {

namespace {

struct TablesWorkplace : PlantedWorkplace {
    TablesWorkplace()
        : PlantedWorkplace({"ModBus.coil", "ModBus.holding register", "U", "U.A/", "U.A.x", "U.A.y", "V"}) {
        for (const char* name : {"coil", "holding register"})
            configuration.replaceDataType(Key(name), clsModBusType::usual(*tableOf(name)));
        configuration.setSaved(true);
    }

    /// The preview as the user sees it: counts, note, rows; then the check box and Confirm if usable.
    static std::string preview(const FakeForm& form) {
        std::string seen = form.text("lblCounts");
        if (form.visible("txtNote")) seen += " (" + form.text("txtNote") + ")";
        for (std::size_t row = 0; row < form.contents->rowCount(); ++row) {
            seen += " /";
            for (std::size_t column = 0; column < form.contents->columns().size(); ++column)
                seen.append(column == 0 ? " " : "|").append(form.contents->cell(row, column));
        }
        seen += form.visible("chkAccepted") ? " [ ]" : "";
        return seen + (form.enabled("cmdConfirm") ? " Confirm" : "");
    }
    /// Runs an import of the text (lines separated by "|") in one of the three ways and answers the preview,
    /// if one opens: what it shows.
    std::string import(std::string_view how, const std::string& text, std::string_view answer) {
        std::string bytes, seen;
        for (const std::string& line : split(text)) bytes += line + "\n";
        forms.scripts.clear();
        forms.scripts.push_back([&](FakeForm& form) {
            seen = preview(form);
            if (!answer.empty()) form.fill(answer);
        });
        if (how == "paste") {
            clipboard.contents = text.empty() ? "" : bytes;
            run("mnuPasteTable");
            return seen;
        }
        writeFile(path("table.CSV"), bytes);
        fileDialog.choice = path("table.CSV");
        how == "drop" ? editor.fileDropped(path("table.CSV")) : run("mnuImportTable");
        return seen;
    }
    Texts enabledEntries() const {
        Texts names;
        for (const ContextEntry& entry : editor.contextEntries())
            if (entry.enabled && entry.caption.find("Table") != std::string::npos)
                names.push_back(entry.caption);
        return names;
    }
};

}  // namespace

TEST(TableCommands, CopyAndExportWhatIsSelected) {
    const std::string header = "Unit\tBranch\tName\t";
    for (const auto& [steps, firstColumns, news] : std::vector<std::array<std::string, 3>>{
             {"top", "U.A.x U.A.y", "2 items copied as a table"},
             {"top: V", "V", "1 unit copied as a table"},
             {"U: U", "U", "1 unit copied as a table"},
             {"U.A: y", "U.A.y", "1 item copied as a table"},
             {"ModBus", "coil holding register", "2 data types copied as a table"},
             {"V", "", "0 items copied as a table"}}) {
        TablesWorkplace place;
        place.window.focus = FocusedView::Tree;
        play(place, {{steps + "; mnuCopyTable", "notice " + news}});
        std::string copied;
        for (const std::string& line : split(place.clipboard.contents, "\r\n")) {
            const Texts cells = split(line, "\t");
            const bool item = place.clipboard.contents.starts_with(header);
            if (line.empty() || cells[0] == "Unit" || cells[0] == "Name") continue;
            copied +=
                (copied.empty() ? "" : " ") + (item ? cells[0] + "." + cells[1] + "." + cells[2] : cells[0]);
        }
        EXPECT_EQ(copied, firstColumns) << steps;
        place.fileDialog.choice = place.path("out.txt");
        writeFile(place.path("out.txt"), "old");
        play(place, {{"no; mnuExportTable",
                      "said File " + place.path("out.txt") + " already existing. Overwrite?"}});
        EXPECT_EQ(readFile(place.path("out.txt")), "old");
        place.run("mnuExportTable");
        EXPECT_EQ(readFile(place.path("out.txt")), "\xEF\xBB\xBF" + place.clipboard.contents) << steps;
    }
    TablesWorkplace place;
    place.clipboard.locked = true;
    play(place, {{"mnuCopyTable", "notice Not copied: another program uses the clipboard"}});
    play(place, {{"mnuExportTable", "saved"}});  // cancelled
    const std::string stem = std::filesystem::path(place.configuration.state.filePath).stem().string();
    EXPECT_EQ(place.fileDialog.calls, Texts{"Export table|tables |*.csv|" + stem + "-items.csv"});
}

TEST(TableCommands, ImportsShowWhatTheyChange) {
    const std::string mixed = "Unit,Branch,Name,Comment,Foo|U,A,x,new,1|U,A,y,\"a\tb\",|X,,q,,";
    const std::string shown =
        "1 item to change, 2 refused (Unknown columns, which are ignored: \"Foo\") / U.A.y|Comment||a\tb|"
        "Refused, line 3: Comment has a line break or TAB, or is no valid text / q||||Refused, line 4: There "
        "is no unit \"X\" / U.A.x|Comment||new| [ ]";
    const std::string units = "Name,Identifier,Timeout,IP Address|V,9,5,1.2.3.4|W,7,5,1.2.3.4";
    const std::string noHeader = ": The text is not a table: line 1: there is no column \"Name\"";
    for (const auto& [how, text, answer, seen, after] : std::vector<std::array<std::string, 5>>{
             {"paste", mixed, "cmdCancel", shown, "saved | notice Nothing changed"},
             {"import", mixed, "", shown, "saved | notice Nothing changed"},  // closed
             {"drop", mixed, "chkAccepted|chkAccepted|cmdCancel", shown, "saved"},
             {"drop", mixed, "chkAccepted|cmdConfirm", shown,
              "unsaved | list U.A: *x y | notice Done: Import 1 change. Ctrl+Z undoes it"},
             {"drop", "Unit,Branch,Name,New Name|U,A,x,z", "cmdConfirm",
              "1 item to change / U.A.x|Name|x|z| Confirm",
              "unsaved | list U.A: y *z | notice Done: Import 1 change. Ctrl+Z undoes it"},
             {"paste", units, "cmdConfirm",
              "1 unit to change, 1 to add / V|Identifier|0|9| / V|IP Address|10.0.0.1|"
              "1.2.3.4| / V|Timeout|0|5| / W|Name||W|Added / W|Identifier||7| / W|IP Address||1.2.3.4| / "
              "W|Timeout||5| "
              "Confirm",
              "unsaved | tree top: ModBus(coil holding register) U(A(x y)) V W"},
             {"import",
              "Unit,Branch,Name,Comment,ModBus Type,Data Type,Address,Access Rights|U,A,x,a & "
              "b,coil,boolean,1,READ|"
              "U,B.C,New_Item_7,,coil,boolean,1,READ",
              "cmdCancel",
              "1 item to change, 1 to add / U.A.x|Comment||a & b|comment holds \"&\", which XML takes for "
              "markup; take it out / U.A.x|ModBus Type|holding register|coil| / U.A.x|Address|0|1| / "
              "U.A.x|Bit||0| / U.A.x|Data Type|signed 16 bit|boolean| / "
              "U.B.C.New_Item_7|Name||New_Item_7|Added, new branch B.C; overlaps A.x (coil 1); move one of "
              "them unless they are to show the same place in two ways / U.B.C.New_Item_7|ModBus Type||coil| "
              "/ U.B.C.New_Item_7|Address||1| / U.B.C.New_Item_7|Bit||0| / U.B.C.New_Item_7|Data "
              "Type||boolean| / U.B.C.New_Item_7|Access Rights||READ| Confirm",
              "saved"},
             {"import", "Name,Read Code|coil,1", "cmdCancel", "Nothing to change", "saved"},
             {"paste", "Name,New Name|X,Y", "",
              "1 unit refused / X||||Refused, line 2: There is no \"X\" to rename", "saved"},
             {"paste", "", "", "", "said Empty clipboard !"},
             {"paste", "a b", "", "", "said Clipboard" + noHeader},
             {"drop", "a b", "", "", "said FILE" + noHeader}}) {
        TablesWorkplace place;
        play(place, {{"U.A: x", ""}});
        const std::string before = place.saved();
        EXPECT_EQ(place.import(how, text, answer), seen) << how << text;
        const bool file = after.starts_with("said FILE");
        play(place, {{"", file ? replaced(after, "FILE", place.path("table.CSV")) : after}});
        if (after.starts_with("unsaved")) place.run("mnuUndo");
        EXPECT_EQ(place.saved("again.xml"), before);
    }
}

TEST(TableCommands, NeedAConfiguration) {
    TablesWorkplace place;
    const Texts all{"Copy as Table", "Paste Table...", "Export Table...", "Import Table..."};
    EXPECT_EQ(place.enabledEntries(), all);
    place.run("mnuCloseCfg");
    EXPECT_EQ(place.enabledEntries(), Texts());
    for (const char* command : {"mnuCopyTable", "mnuPasteTable", "mnuExportTable", "mnuImportTable"})
        play(place, {{std::string("clipboard: x; ") + command, "saved"}});
    EXPECT_EQ(place.import("drop", "Name|X", ""), "");
    EXPECT_EQ(place.messages.take(),
              Texts{"Open a configuration before you import " + place.path("table.CSV") + "."});
}

}  // namespace trevandix::testing
