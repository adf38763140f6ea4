#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

struct BulkWorkplace : PlantedWorkplace {
    BulkWorkplace()
        : PlantedWorkplace(
              {"U", "U.A/", "U.A.a", "U.A.b", "U.A.c", "U.A.d", "U.A.S/", "U.A.S.b", "U.B/", "U.B.q"}) {
        click("U.A");
    }
    /// Pastes the text onto the rows (names separated by spaces). Returns the preview: a line per row, "|"
    /// after each cell.
    std::string preview(const std::string& rows, std::string_view text, std::string_view command) {
        std::string shown;
        clipboard.contents = text;
        selectRows(split(rows, " "));
        runDialog(*this, command, [&](FakeForm& form) {
            for (const Texts& line : form.cells) {
                for (const std::string& cell : line) shown += cell + "|";
                shown += "\n";
            }
            shown += form.visible("lblOrder") ? "not in order" : "";
            form.press("Command1");
        });
        return shown;
    }
};

}  // namespace

TEST(BulkPaste, SplitsClipboardTextIntoLines) {
    const std::vector<std::pair<std::string_view, Texts>> cases{
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\r\nb", {"a", "b"}},
        {"  a b \r\n\r\n c", {"a b", "", "c"}},
        {"a\nb\r\nc\r\n", {"a\nb", "c"}},
        {"a\nb\n", {"a", "b"}},
        {"\r\n", {""}},
        {"a\r\n ", {"a", ""}},
        {"\xC3\xA4\r\n\xE2\x82\xAC", {"\xC3\xA4", "\xE2\x82\xAC"}},
        {"", {}},
    };
    for (const auto& [text, lines] : cases) EXPECT_EQ(clipboardLines(text), lines) << text;
}

TEST(BulkPaste, PreviewWarnsWhenRowsAreNotInAddressOrder) {
    BulkWorkplace place;
    for (const auto& [key, address] :
         std::vector<std::pair<const char*, int>>{{"U.A.a", 9}, {"U.A.b", 40}, {"U.A.c", 10}})
        place.item(key).nAddress(address);
    place.item("U.A.b").sComment("old");
    place.click("U.A");
    EXPECT_EQ(place.preview("a b", " x \r\ny", "mnuPasteName"),
              "Item name||New Item name|Address|\na|<---|x|9|\nb|<---|y|40|\n");
    EXPECT_EQ(place.preview("a b", "x, y: z\r\nx", "mnuPasteComment"),
              "Item comment||New Item comment|Item|\n|<---|x, y: z|a, 9|\nold|<---|x|b, 40|\n");
    for (const char* command : {"mnuPasteName", "mnuPasteComment"})
        EXPECT_TRUE(place.preview("a b c", "x\r\ny\r\nz", command).ends_with("not in order"));
    // A click on the Index header sorts by table, address and bit.
    place.editor.ListView1_ColumnClick(6);
    EXPECT_EQ(place.preview("a b c", "x\r\ny\r\nz", "mnuPasteName"),
              "Item name||New Item name|Address|\na|<---|x|9|\nc|<---|y|10|\nb|<---|z|40|\n");
    play(place, {{"", "tree U.A: a b c d S(b) | saved"}});
}

TEST(BulkPaste, PreviewSaysWhatIsWrongWithNewNames) {
    BulkWorkplace place;
    const Texts lines = split(place.preview("a b", "x\r\nP&T", "mnuPasteName"), "\n");
    EXPECT_EQ(lines[0], "Item name||New Item name|Address|Remark|");
    EXPECT_EQ(lines[1], "a|<---|x|0||");
    EXPECT_TRUE(lines[2].starts_with("b|<---|P&T|0|") && lines[2].size() > 30) << lines[2];
    // The command itself refuses this name.
    EXPECT_TRUE(
        place.preview("a b", "x\r\nP &", "mnuPasteName").starts_with("Item name||New Item name|Address|\n"));
}

// Items that can be renamed are renamed, even if they swap names; the others keep their names.
TEST(BulkPaste, RenamesEveryItemThatCanBeRenamed) {
    const std::string inCollection = failure(kKeyInCollection, "mnuPasteName_Click")[0];
    const std::string space = " | said Character ( ) not acceptable in string b c";
    const std::string space2 = " / " + space.substr(8);
    // Pasted onto a, b and c.
    for (const auto& [text, seen] :
         Fields{{" x \r\ny\r\nz\r\n", "list U.A: *x *y *z d | tree U.A: d S(b) x y z"},
                {"b\r\nc\r\na", "list U.A: *b *c *a d"},
                {"x\r\nb c\r\nz", "list U.A: *x *b *z d | tree U.A: b d S(b) x z" + space},
                {"x\r\nS.b\r\nz", "list U.A: *x *b *z d | said Character (.) not acceptable in string S.b"},
                {"x\r\nx\r\nz", "list U.A: *x *b *z d | said " + inCollection},
                {"b c\r\nb c\r\nb c", "list U.A: *a *b *c d" + space + space2 + space2},
                {"b\r\nc\r\nb c", "saved | list U.A: *a *b *c d" + space + " / " + inCollection},
                {"b\r\na\r\nb", "list U.A: *b *a *c d | said " + inCollection},
                {"S\r\na\r\nz",
                 "list U.A: *a *b *z d | said " + failure(kKeyNotUnique, "mnuPasteName_Click")[0]},
                // Refused before anything changes.
                {"", "saved | said Empty clipboard !"},
                {"x\r\ny", "saved | said Invalid selection"},
                {"x\r\ny\r\nd", "saved | said Name already existing"},
                {"d\r\nx", "saved | said Name already existing"}}) {
        BulkWorkplace place;
        for (const char* name : {"a", "b", "c"}) place.item("U.A." + std::string(name)).sComment(name);
        const bool refused = seen.starts_with("saved");
        play(place, {{"clipboard: " + text + "; U.A: a b c; mnuPasteName: ", seen},
                     {"", refused ? "tree U.A: a b c d S(b)" : "unsaved"}});
        // The rows now belong to the renamed items, each with its own comment.
        for (std::size_t row = 0; row < 3; ++row) {
            const clsItem& item = place.item(place.list.rows()[row].key);
            EXPECT_EQ(item.sName() + item.sComment(), place.list.rows()[row].text + "abc"[row]) << text;
        }
    }
}

TEST(BulkPaste, PastesCommentsAndSingleItems) {
    BulkWorkplace place;
    play(place, {{"U.A; clipboard: x; mnuPasteName: ", "said Invalid selection"},
                 {"clipboard: ; U.A: b c; mnuPasteComment: ", "said Empty clipboard !"},
                 {"clipboard: x\r\ny\r\nz; mnuPasteComment: ", "saved | said Invalid selection"},
                 {"clipboard: a, b: c\r\nd; mnuPasteComment: ", "unsaved"}});  // not allowed in names
    EXPECT_EQ(place.item("U.A.b").sComment(), "a, b: c");
    EXPECT_EQ(place.list.cell(1, 1), "a, b: c");
    // With an item selected, the clash is found only by the collection.
    play(place, {{"clipboard: b; U.A.a: a; mnuPasteName: ",
                  "tree U.A: a b c d S(b) | said " + failure(kKeyInCollection, "mnuPasteName_Click")[0]},
                 {"clipboard: x; mnuPasteName: ", "tree U.A: b c d S(b) x"},
                 // The row's item has been dragged away.
                 {"U.A: b; drag U.A.b to U.B; mnuPasteComment: ",
                  "said " + failure(kInvalidCall, "mnuPasteComment_Click")[0]},
                 {"clipboard: y; mnuPasteName: ",
                  "said " + failure("35601  Element not found", "mnuPasteName_Click")[0]}});
}

}  // namespace trevandix::testing
