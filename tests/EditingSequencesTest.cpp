// Compares random users with the reference after each step. Also tests the invariant checks themselves, and
// that opening and closing leaks no memory.
#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "Plant.h"
#include "RandomSteps.h"

namespace trevandix::testing {

TEST(EditingSequences, RandomStepsMatchTheReference) {
    for (unsigned seed = 1; seed <= 16; ++seed) {
        const Walk walked = walk(seed, 1500, seed % 4 == 0);
        ASSERT_EQ(walked.told(), "") << "seed " << seed;
    }
}

TEST(EditingSequences, RandomBulkChangesMatchTheReference) {
    for (unsigned seed = 1; seed <= 12; ++seed) ASSERT_EQ(bulkWalk(seed, 300).told(), "") << "seed " << seed;
}

TEST(EditingSequences, TheOldestStepsAreDropped) {
    PlantedWorkplace place({"U", "U.B/", "U.B.x"});
    place.saved();
    const Configuration& c = place.configuration;
    // In MiB; a step keeps the comment before. Returns the comment that is left when everything is undone.
    const auto earliest = [&](std::initializer_list<std::size_t> comments) {
        for (const std::size_t size : comments)
            place.configuration.setComment(Key("U.B.x"), std::string(size << 20, 'c'));
        while (!c.undoName().empty()) place.run("mnuUndo");
        return c.items.last()->sComment().size() >> 20;
    };
    EXPECT_EQ(earliest({100, 101, 102, 103}), 101U);
    EXPECT_FALSE(c.state.saved || c.equalsFile());
    EXPECT_EQ(earliest({102, 103}), 101U) << "what was undone counts no more";
    EXPECT_EQ(earliest({260, 1}), 260U) << "the newest stays";
    place.configuration.removeItem(Key("U.B.x"));  // keeps its comment
    plantItem(place.configuration, place.node("U.B"), "y");
    place.run("mnuUndo");
    EXPECT_EQ(c.undoName(), "");
}

TEST(EditingSequences, UndoFindsTheOldPlaceAmongEqualTexts) {
    PlantedWorkplace place({"U", "U.A/", "U.b/", "U.a/", "V", "V.A/", "V.b/", "V.a/", "W", "W.x/", "W.ab/"});
    // A click on the parent sorts what is not sorted yet.
    play(place, {{"U.A; mnuDelete; U; mnuUndo; U",
                  "tree U: A a b | said Are you sure you want to delete A and all its items?"},
                 {"mnuRedo; mnuUndo; U", "tree U: A a b"},
                 {"edit V.A: txtBranchName=c; V; mnuUndo; V", "tree V: A a b"},
                 {"edit W.x: txtBranchName=AB; mnuUndo; W; mnuRedo; W", "tree W: AB ab"}});
}

TEST(EditingSequences, UndoInADialogDoesNothing) {
    PlantedWorkplace place({"U", "U.B/"});
    const auto undo = [&](std::string_view) {
        place.editor.commandChosen("mnuUndo");
        EXPECT_TRUE(place.has("U.B"));
    };
    place.messages.onShow = undo;
    place.at("U");
    runDialog(place, "mnuAddBranch", [&](FakeForm& form) {
        undo("");
        form.fill("txtBranchName=B|cmdOk");  // taken: a message box
    });
    EXPECT_EQ(place.messages.take(), kNameTaken);
    EXPECT_EQ(place.configuration.undoName(), "Add branch B");
}

TEST(EditingSequences, InvariantsReportEveryDisagreement) {
    const Key item("U.B.x");
    const std::vector<std::pair<std::function<void(Configuration&)>, Texts>> rows{
        {[](Configuration&) {}, {}},
        {[&](Configuration& c) { behindTheDoor(c.items).remove(item); }, {"item node without record: U.B.x"}},
        {[&](Configuration& c) { behindTheDoor(c.tree).detach(c.tree.at(item)); },
         {"item record without node: U.B.x"}},
        {[&](Configuration& c) { behindTheDoor(c.tree).setText(c.tree.at(item), "y"); },
         {"key of another place: U.B.x"}},
        {[&](Configuration& c) { behindTheDoor(c.tree).setKey(c.tree.at(item), Key("U.B.y")); },
         {"item node without record: U.B.y", "key of another place: U.B.y",
          "item record without node: U.B.x"}},
        {[&](Configuration& c) { behindTheDoor(c.branches).add(nullptr, item); },
         {"key without record: U.B.x", "branch record without node: U.B.x"}}};
    for (const auto& [fault, named] : rows) {
        PlantedWorkplace place({"U", "U.B/", "U.B.x"});
        fault(place.configuration);
        EXPECT_EQ(place.wrong(), named);
    }
}

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
TEST(EditingSequences, OpenAndCloseLeakNoMemory) {
    Workplace place;
    const std::string text = readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml");
    const auto afterRounds = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            place.openText(text);
            place.run("mnuCloseCfg");
            place.window.percents.clear();
            place.pointer.shapes.clear();
            place.fileDialog.calls.clear();
            place.window.recent.clear();
        }
        return mallinfo2().uordblks;
    };
    const std::size_t before = afterRounds(10);
    EXPECT_LT(afterRounds(1000), before + 4096);
}
#endif

}  // namespace trevandix::testing
