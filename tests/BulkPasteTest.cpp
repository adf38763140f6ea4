#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

using Cells = std::vector<Texts>;

namespace {

struct BulkWorkplace : PlantedWorkplace {
    BulkWorkplace()
        : PlantedWorkplace(
              {"U", "U.A/", "U.A.a", "U.A.b", "U.A.c", "U.A.d", "U.A.S/", "U.A.S.b", "U.B/", "U.B.q"}) {
        click("U.A");
    }
    /// Pastes the text onto the rows, pressing the button in the preview.
    Texts paste(const Texts& rows, std::string_view text, std::string_view command = "mnuPasteName",
                std::string_view button = "Command2") {
        clipboard.contents = text;
        selectRows(rows);
        messages.take();
        forms.scripts.clear();
        forms.scripts.emplace_back([this, button](FakeForm& form) {
            preview = form.cells;
            warned = form.visible("lblOrder");
            form.press(button);
        });
        run(command);
        return messages.take();
    }
    /// What branch A holds, in the tree's order: names, and comments where there are any.
    Texts names() {
        Texts found;
        const TreeNode* child = node("U.A").firstChild();
        for (; child != nullptr; child = child->nextSibling()) {
            const bool commented = child->tag() == NodeTag::Item && !item(child->key()).sComment().empty();
            found.push_back(child->text() + (commented ? ":" + item(child->key()).sComment() : ""));
        }
        return found;
    }
    Cells preview;
    bool warned = false;
};

}  // namespace

TEST(BulkPaste, LinesAsOtherProgramsLeaveThem) {
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

TEST(BulkPaste, NamesGoToTheRowsInListOrder) {
    BulkWorkplace place;
    EXPECT_EQ(place.paste({"a", "b", "d"}, " one \r\ntwo\r\nthree\r\n"), Texts());
    EXPECT_EQ(place.preview, (Cells{{"Item name", "", "New Item name", "Address"},
                                    {"a", "<---", "one", "0"},
                                    {"b", "<---", "two", "0"},
                                    {"d", "<---", "three", "0"}}));
    EXPECT_EQ(place.names(), (Texts{"c", "one", "S", "three", "two"}));  // the tree goes on sorting
    EXPECT_EQ(place.item("U.A.two").sKey(), "U.A.two");
    EXPECT_EQ(place.list.rows()[1].text, "two");
    EXPECT_FALSE(place.configuration.state.saved);
    // The rows stand for the renamed items from now on.
    place.run("mnuCopy");
    EXPECT_EQ(place.configuration.state.copyBuffer.back()->sName(), "three");
    EXPECT_EQ(place.messages.take(), Texts());
}

// By table, address and bit; a click on the header of the index brings them into this order.
TEST(BulkPaste, WarnsWhenRowsAreNotInAddressOrder) {
    BulkWorkplace place;
    for (const auto& [key, address] :
         std::vector<std::pair<std::string_view, int>>{{"U.A.a", 9}, {"U.A.b", 40}, {"U.A.c", 10}})
        place.item(key).nAddress(address);
    place.click("U.A");
    for (const std::string_view command : {"mnuPasteName", "mnuPasteComment"}) {
        place.paste({"a", "b"}, "x\r\ny", command, "Command1");
        EXPECT_FALSE(place.warned);
        place.paste({"a", "b", "c"}, "x\r\ny\r\nz", command, "Command1");
        EXPECT_TRUE(place.warned);
    }
    place.editor.ListView1_ColumnClick(6);
    place.paste({"a", "c", "b"}, "x\r\ny\r\nz", "mnuPasteName", "Command1");
    EXPECT_FALSE(place.warned);
    EXPECT_EQ(place.preview[2], (Texts{"c", "<---", "y", "10"}));
}

TEST(BulkPaste, RefusesBeforeAnythingChanges) {
    BulkWorkplace place;
    const Texts empty{"Empty clipboard !"};
    const Texts selection{"Invalid selection"};
    const Texts clash{"Name already existing"};
    struct Case {
        std::string rows;
        std::string_view text;
        Texts names;     // what the paste of names answers
        Texts comments;  // and that of comments
    };
    const std::vector<Case> cases{
        {"a", "", empty, empty},
        {"a|b|c", "x\r\ny", selection, selection},
        {"none", "x", selection, selection},
        {"a|b", "x\r\nd", clash, {}},
        {"a", "b\r\nx\r\ny", clash, selection},  // looked for before the lines are counted
        {"a", "x", {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(place.paste(split(c.rows), c.text, "mnuPasteName", "Command1"), c.names);
        EXPECT_EQ(place.paste(split(c.rows), c.text, "mnuPasteComment", "Command1"), c.comments);
        EXPECT_EQ(place.names(), (Texts{"a", "b", "c", "d", "S"}));
        EXPECT_TRUE(place.configuration.state.saved);
    }
}

// All that can be renamed is, also where names are exchanged; the rest stays as it was.
TEST(BulkPaste, EveryItemGetsItsNameOrKeepsItsOwn) {
    const std::string inCollection = failure(kKeyInCollection, "mnuPasteName_Click")[0];
    const std::string inTree = failure(kKeyNotUnique, "mnuPasteName_Click")[0];
    const std::string space = "Character ( ) not acceptable in string b c";
    struct Case {
        std::string_view text;  // onto a, b, c, whose comments are 1, 2, 3
        Texts messages;
        Texts names;
    };
    const std::vector<Case> cases{
        {"b\r\nc\r\na", {}, {"a:3", "b:1", "c:2", "d", "S"}},
        {"x\r\nb c\r\nz", {space}, {"b:2", "d", "S", "x:1", "z:3"}},
        {"x\r\nS.b\r\nz", {"Character (.) not acceptable in string S.b"}, {"b:2", "d", "S", "x:1", "z:3"}},
        {"x\r\nx\r\nz", {inCollection}, {"b:2", "d", "S", "x:1", "z:3"}},
        {"b\r\nb c\r\nz", {space, inCollection}, {"a:1", "b:2", "d", "S", "z:3"}},
        {"b\r\nc\r\nb c", {space, inCollection}, {"a:1", "b:2", "c:3", "d", "S"}},
        {"b\r\na\r\nb", {inCollection}, {"a:2", "b:1", "c:3", "d", "S"}},
        {"S\r\na\r\nz", {inTree}, {"a:1", "b:2", "d", "S", "z:3"}},
    };
    for (const Case& c : cases) {
        BulkWorkplace place;
        SCOPED_TRACE(std::string(c.text));
        for (const auto& [key, comment] : Fields{{"U.A.a", "1"}, {"U.A.b", "2"}, {"U.A.c", "3"}})
            place.item(key).sComment(comment);
        EXPECT_EQ(place.paste({"a", "b", "c"}, c.text), c.messages);
        EXPECT_EQ(place.names(), c.names);
        const bool nothing = c.names == Texts{"a:1", "b:2", "c:3", "d", "S"};
        EXPECT_EQ(place.configuration.state.saved, nothing);
    }
}

TEST(BulkPaste, AnItemAloneIsComparedWithItsSiblingsTooLate) {
    BulkWorkplace place;
    place.click("U.A.a");
    // An error message, as the clash test looks below the item.
    EXPECT_EQ(place.paste({"a"}, "b"), failure(kKeyInCollection, "mnuPasteName_Click"));
    EXPECT_EQ(place.names(), (Texts{"a", "b", "c", "d", "S"}));
    EXPECT_EQ(place.paste({"a"}, "x"), Texts());
    EXPECT_EQ(place.names(), (Texts{"b", "c", "d", "S", "x"}));
}

TEST(BulkPaste, CommentsAreTakenAsTheyAre) {
    BulkWorkplace place;
    place.item("U.A.b").sComment("old");
    EXPECT_EQ(place.paste({"b", "c"}, "a, b: c\r\na, b: c", "mnuPasteComment"), Texts());
    EXPECT_EQ(place.preview, (Cells{{"Item comment", "", "New Item comment", "Item"},
                                    {"old", "<---", "a, b: c", "b, 0"},
                                    {"", "<---", "a, b: c", "c, 0"}}));
    EXPECT_EQ(place.item("U.A.b").sComment(), "a, b: c");
    EXPECT_EQ(place.list.cell(2, 1), "a, b: c");
    EXPECT_FALSE(place.configuration.state.saved);
    place.drag("U.A.b", "U.B");
    EXPECT_EQ(place.paste({"b"}, "x", "mnuPasteComment"), failure(kInvalidCall, "mnuPasteComment_Click"));
    EXPECT_EQ(place.paste({"b"}, "x"), failure("35601  Element not found", "mnuPasteName_Click"));
}

}  // namespace trevandix::testing
