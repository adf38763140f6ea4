#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {
const std::string kChangeName = "said Please change Item name (do not use default name) before copying";
const Texts kTwoBranches{"U", "U.A/", "U.B/", "U.A.x", "U.A.y", "U.A.z"};
}  // namespace

TEST(ClipboardEditing, CopiesGetNumbersOnlyBesideTheirOriginal) {
    PlantedWorkplace place(kTwoBranches);
    place.at("U.A", {"x", "z"}).run("mnuCopy");
    place.item("U.A.x").sComment("later");  // the buffer holds the records themselves
    play(place, {{"mnuPaste", "list U.A: *x x_0 y *z z_0"},
                 {"mnuPaste", "list U.A: *x x_0 x_1 y *z z_0 z_1"},
                 {"U.B; mnuPaste", "list U.B: x z"},
                 {"U.A: y; mnuCopy; mnuPaste", "tree U: A(x x_0 x_1 y y_0 z z_0 z_1) B(x z) | saved"}});
    EXPECT_EQ(place.item("U.A.x_0").sComment(), "later");
    EXPECT_EQ(place.node("U.B.x").look().selectedImage, Image::None);
}

TEST(ClipboardEditing, DefaultNamesStopACopy) {
    PlantedWorkplace place({"U", "U.A/", "U.B/", "U.C/", "U.A.a", "U.A.New_Item_3", "U.A.z",
                            "U.B.Copied_Item_1", "U.B.new_item"});
    play(place, {{"U.A: a New_Item_3 z; mnuCopy", kChangeName},
                 {"U.A.New_Item_3; mnuCopy", kChangeName},
                 {"U.B: Copied_Item_1; mnuCopy", kChangeName},
                 {"U.C; mnuPaste", "tree U.C: a"},  // what came before the first refusal
                 // From the tree this one may be copied.
                 {"U.B.Copied_Item_1; mnuCopy; U.C; mnuPaste", "tree U.C: a Copied_Item_1"},
                 {"U.B: new_item; mnuCopy; U.C; mnuPaste", "tree U.C: a Copied_Item_1 new_item"}});
}

TEST(ClipboardEditing, PasteSaysWhatFailed) {
    PlantedWorkplace place({"U", "U.A/", "U.B/", "U.B.y/", "U.A.x", "U.A.y", "U.A.z"});
    auto& buffer = behindTheDoor(place.configuration.state).copyBuffer;
    buffer.clear();
    play(place, {{"U.A; mnuPaste", "said No items to paste."}});
    buffer = {nullptr, nullptr};
    play(place,
         {{"mnuPaste", "said Copied object can not be added here "},
          {"U.A: x y z; mnuCopy; top; mnuPaste; U; mnuPaste; ModBus; mnuPaste; U.A.x; mnuPaste", ""},
          // The sub-branch y has the key.
          {"U.B; mnuPaste", "tree U: A(x y z) B(x y) | said " + failure(kKeyNotUnique, "mnuPaste_Click")[0]},
          {"mnuPaste", "said " + failure(kKeyInCollection, "mnuPaste_Click")[0]}});
    EXPECT_EQ(place.configuration.state.pasteCounter, 0);
}

TEST(ClipboardEditing, DeleteAsksAndDeletesWhatIsFocused) {
    struct Case {
        std::string at;
        std::string question;  // of what; none where nothing is deleted
        std::string seen;      // after Yes
    };
    const std::string whole = "tree top: ModBus U(A(B(p) x y z)) V(last) W";
    const std::vector<Case> cases{
        {"U", "U?",
         whole + " | list U: U | said Are you sure you want to delete U? / This unit is not empty"},
        {"W", "W?", "tree top: ModBus U(A(B(p) x y z)) V(last) | list V: V"},
        {"U.A", "A and all its items?", "tree top: ModBus U V(last) W | list U: U"},
        {"U.A.x", "x ?", "tree top: ModBus U(A(B(p) y z)) V(last) W | list U.A: y z"},
        {"U.A.B", "B and all its items?", "tree top: ModBus U(A(x y z)) V(last) W | list U.A.x: x"},
        {"V.last", "last ?", "tree top: ModBus U(A(B(p) x y z)) V W | list : U V W"},
        {"U.A: x z", "the selected items ?", "tree top: ModBus U(A(B(p) y)) V(last) W | list U.A: y"},
        {"U.A.x: x", "", whole},
        {"U: U", "", whole},
        {"ModBus", "", whole},
        {"top", "", whole},
    };
    const Texts all{"U", "U.A/", "U.A.B/", "U.A.B.p", "U.A.x", "U.A.y", "U.A.z", "V", "V.last", "W"};
    for (const Case& c : cases) {
        const std::string asked =
            c.question.empty() ? "" : " | said Are you sure you want to delete " + c.question;
        const bool more = c.seen.find("said") != std::string::npos;
        PlantedWorkplace place(all);
        play(place, {{c.at + "; no; mnuDelete", whole + asked}});
        PlantedWorkplace second(all);
        play(second, {{c.at + "; mnuDelete", c.seen + (more ? "" : asked)}, {"", "saved"}});
    }
}

TEST(ClipboardEditing, DeleteBringsTheListUpToDate) {
    PlantedWorkplace place(kTwoBranches);
    const std::string sure = " | said Are you sure you want to delete ";
    play(place, {{"U.A: y; mnuDelete", "list U.A: x z" + sure + "the selected items ?"},
                 {"U.A.x; no; mnuDelete", "list U.A: x z" + sure + "x ?"},  // the list shows the parent
                 {"U.A: x z; drag U.A.z to U.B", "list U.A: *x *z"},        // which leaves the list as it is
                 {"mnuDelete", "tree U: A B(z)" + sure + "the selected items ? / " +
                                   failure(kInvalidCall, "mnuDelete_Click")[0]}});
    EXPECT_EQ(place.wrong(), Texts());
}

TEST(ClipboardEditing, CutDeletesEvenWhatCouldNotBeCopied) {
    PlantedWorkplace place(kTwoBranches);
    play(place,
         {{"U.A.y; mnuCut; U.B; mnuPaste", "tree U: A(x z) B(y) | said Are you sure you want to delete y ?"},
          {"U.A; mnuCut",
           "tree U: B(y) | said Please use Drag&Drop to copy and paste branches / Are you "
           "sure you want to delete A and all its items?"}});
    place.window.focus = FocusedView::None;
    play(place, {{"mnuCut", "tree U: B(y)"}});
}

}  // namespace trevandix::testing
