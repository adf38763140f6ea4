#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {
constexpr const char* kChangeName = "Please change Item name (do not use default name) before copying";
const Texts kTwoBranches{"U", "U.A/", "U.B/", "U.A.x", "U.A.y", "U.A.z"};
}  // namespace

TEST(ClipboardEditing, CopiesGetNumbersOnlyBesideTheirOriginal) {
    PlantedWorkplace place(kTwoBranches);
    place.at("U.A", {"x", "z"}).run("mnuCopy");
    place.item("U.A.x").sComment("later");  // the buffer holds the records themselves
    place.run("mnuPaste");
    EXPECT_EQ(place.item("U.A.x_0").sComment(), "later");
    EXPECT_EQ(place.below("U.A"), (Texts{"U.A.x", "U.A.x_0", "U.A.y", "U.A.z", "U.A.z_0"}));
    EXPECT_EQ(place.list.rows().size(), 5U);
    place.run("mnuPaste");
    EXPECT_TRUE(place.has("U.A.x_1") && place.has("U.A.z_1"));
    place.at("U.B").run("mnuPaste");
    EXPECT_EQ(place.below("U.B"), (Texts{"U.B.x", "U.B.z"}));
    EXPECT_EQ(place.node("U.B.x").look().selectedImage, Image::None);
    place.at("U.A", {"y"}).run("mnuCopy");
    place.run("mnuPaste");
    EXPECT_TRUE(place.has("U.A.y_0"));
    EXPECT_TRUE(place.configuration.state.saved);
    EXPECT_EQ(place.messages.take(), Texts());
}

TEST(ClipboardEditing, DefaultNamesStopACopy) {
    PlantedWorkplace place(
        {"U", "U.A/", "U.B/", "U.A.a", "U.A.New_Item_3", "U.A.z", "U.B.Copied_Item_1", "U.B.new_item"});
    const auto& state = place.configuration.state;
    struct Case {
        std::string_view node;
        Texts rows;  // selected in the list, which then has the focus
        Texts messages;
        std::string_view copied;  // the first of the buffer
    };
    const std::vector<Case> cases{
        {"U.A", {"a", "New_Item_3", "z"}, {kChangeName}, "a"},
        {"U.A.New_Item_3", {}, {kChangeName}, "a"},
        {"U.B", {"Copied_Item_1"}, {kChangeName}, "a"},
        {"U.B.Copied_Item_1", {}, {}, "Copied_Item_1"},  // from the tree this one may be copied
        {"U.B", {"new_item"}, {}, "new_item"},
    };
    for (const Case& c : cases) {
        place.at(c.node, c.rows);
        place.configuration.state.pasteCounter = 7;
        place.run("mnuCopy");
        EXPECT_EQ(place.messages.take(), c.messages);
        ASSERT_EQ(state.copyBuffer.size(), 2U);
        EXPECT_EQ(state.copyBuffer[1]->sName(), c.copied);
        EXPECT_EQ(state.pasteCounter, 0);
    }
}

TEST(ClipboardEditing, PasteSaysWhatFailed) {
    PlantedWorkplace place({"U", "U.A/", "U.B/", "U.B.y/", "U.A.x", "U.A.y", "U.A.z"});
    auto& state = place.configuration.state;
    place.click("U.A");
    state.copyBuffer.clear();
    place.run("mnuPaste");
    EXPECT_EQ(place.messages.take(), Texts{"No items to paste."});
    state.copyBuffer = {nullptr, nullptr};
    place.run("mnuPaste");
    EXPECT_EQ(place.messages.take(), Texts{"Copied object can not be added here "});
    place.selectRows({"x", "y", "z"});
    place.run("mnuCopy");
    for (const char* elsewhere : {"", "U", "ModBus", "U.A.x"}) place.at(elsewhere).run("mnuPaste");
    EXPECT_EQ(state.pasteCounter, 0);
    EXPECT_EQ(place.messages.take(), Texts());
    place.at("U.B").run("mnuPaste");  // the sub-branch y has the key
    EXPECT_EQ(place.messages.take(), failure(kKeyNotUnique, "mnuPaste_Click"));
    EXPECT_TRUE(place.has("U.B.x"));
    EXPECT_FALSE(place.has("U.B.z"));
    EXPECT_EQ(state.pasteCounter, 0);
    place.run("mnuPaste");
    EXPECT_EQ(place.messages.take(), failure(kKeyInCollection, "mnuPaste_Click"));
}

TEST(ClipboardEditing, DeleteAsksAndDeletesWhatIsFocused) {
    struct Case {
        std::string_view node;
        Texts rows;  // selected in the list, which then has the focus
        Texts messages;
        Texts gone;
        std::string_view selected;
    };
    const Texts all{"U", "U.A/", "U.A.B/", "U.A.B.p", "U.A.x", "U.A.y", "U.A.z", "V", "V.last", "W"};
    const std::string sure = "Are you sure you want to delete ";
    const std::vector<Case> cases{
        {"U", {}, {sure + "U?", "This unit is not empty"}, {}, "U"},
        {"W", {}, {sure + "W?"}, {"W"}, "V"},
        {"U.A", {}, {sure + "A and all its items?"}, {"U.A", "U.A.B.p", "U.A.x"}, "U"},
        {"U.A.x", {}, {sure + "x ?"}, {"U.A.x"}, "U.A"},
        {"U.A.B", {}, {sure + "B and all its items?"}, {"U.A.B", "U.A.B.p"}, "U.A.x"},
        {"V.last", {}, {sure + "last ?"}, {"V.last"}, ""},
        {"U.A", {"x", "z"}, {sure + "the selected items ?"}, {"U.A.x", "U.A.z"}, "U.A"},
        {"U.A.x", {"x"}, {}, {}, "U.A.x"},
        {"U", {"U"}, {}, {}, "U"},
        {"ModBus", {}, {}, {}, "ModBus"},
        {"", {}, {}, {}, ""},
    };
    for (const Case& c : cases) {
        for (const bool yes : {true, false}) {
            PlantedWorkplace place(all);
            SCOPED_TRACE(std::string(c.node) + (yes ? " yes" : " no"));
            const std::size_t nodes = place.configuration.tree.size();
            place.at(c.node, c.rows);
            place.messages.answers = {yes ? Answer::Yes : Answer::No};
            place.run("mnuDelete");
            EXPECT_EQ(place.messages.texts,
                      yes || c.messages.empty() ? c.messages : Texts{c.messages.front()});
            for (const auto& key : c.gone) EXPECT_EQ(place.has(key), !yes);
            EXPECT_EQ(place.configuration.tree.size() == nodes, !yes || c.gone.empty());
            EXPECT_TRUE(!yes || place.selectedKey() == c.selected);
            EXPECT_TRUE(place.configuration.state.saved);
        }
    }
}

TEST(ClipboardEditing, DeleteBringsTheListUpToDate) {
    PlantedWorkplace place(kTwoBranches);
    place.at("U.A", {"y"}).run("mnuDelete");
    EXPECT_EQ(place.list.rows().size(), 2U);
    place.click("U.A.x");
    place.messages.answers = {Answer::No};  // whatever the answer, the list shows the parent
    place.run("mnuDelete");
    EXPECT_EQ(place.list.rows().size(), 2U);
    place.selectRows({"x", "z"});
    place.drag("U.A.z", "U.B");  // which leaves the list as it is
    place.messages.take();
    place.run("mnuDelete");
    EXPECT_EQ(place.messages.take().back(), failure(kInvalidCall, "mnuDelete_Click")[0]);
    EXPECT_EQ(place.below("U"), (Texts{"U.A", "U.B", "U.B.z"}));
    EXPECT_EQ(place.wrong(), Texts());
}

TEST(ClipboardEditing, CutDeletesEvenWhatCouldNotBeCopied) {
    PlantedWorkplace place(kTwoBranches);
    place.at("U.A.y").run("mnuCut");
    place.at("U.B").run("mnuPaste");
    EXPECT_EQ(place.below("U"), (Texts{"U.A", "U.A.x", "U.A.z", "U.B", "U.B.y"}));
    place.messages.take();
    place.at("U.A").run("mnuCut");
    EXPECT_EQ(place.messages.take(), (Texts{"Please use Drag&Drop to copy and paste branches",
                                            "Are you sure you want to delete A and all its items?"}));
    EXPECT_EQ(place.below("U"), (Texts{"U.B", "U.B.y"}));
    place.window.focus = FocusedView::None;
    place.run("mnuCut");
    EXPECT_EQ(place.messages.take(), Texts());
}

}  // namespace trevandix::testing
