// Unsaved work on the disk: when it is written, what it holds, who is offered it, when it goes away.
#include <gtest/gtest.h>

#include <ctime>

#include "FakePlatform.h"
#include "Plant.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix::testing {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

struct Edited : PlantedWorkplace {
    explicit Edited(const fs::path& state = {}) : PlantedWorkplace({"U", "U.a"}, state) {
        configuration.setFilePath(path("test.xml"));
        run("mnuSaveCfg");
        messages.take();
    }

    /// The window's timer, seconds after the start, the user having done nothing for `pause` seconds.
    void tick(int second, int pause) {
        const auto now = start + second * 1s;
        while (editor.idle(now, now - pause * 1s) < 1s) {
        }
    }
    Texts kept() const {
        Texts found;
        if (!fs::exists(folder / "state")) return found;
        for (const auto& entry : fs::directory_iterator(folder / "state")) {
            if (entry.path().extension() == ".xml") found.push_back(readFile(entry.path()));
        }
        return found;
    }
    /// What a file of the configuration as it is now would hold.
    std::string wanted() {
        ConfigurationWriter(configuration, messages, pointer).CreateXML(path("wanted.xml"));
        return readFile(path("wanted.xml"));
    }
    std::size_t files() const {
        const fs::path state = folder / "state";
        return fs::exists(state) ? static_cast<std::size_t>(std::distance(fs::directory_iterator(state), {}))
                                 : 0;
    }

    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

// What the next start finds when the editor dies now: its files, without its locks.
void crash(const Workplace& before, const Workplace& next) {
    fs::create_directory(next.folder / "state");
    for (const auto& entry : fs::directory_iterator(before.folder / "state")) {
        const fs::path copy = next.folder / "state" / entry.path().filename();
        if (entry.path().extension() == ".lock")
            writeFile(copy, "");  // one that is held cannot be read everywhere
        else
            fs::copy(entry.path(), copy);
    }
}

const std::string kQuestion = "The editor was not closed properly. Recover the unsaved changes to ";

}  // namespace

TEST(Recovery, KeepsChangedWorkWhenTheUserPauses) {
    Edited place;
    place.tick(0, 100);
    EXPECT_EQ(place.files(), 0U);  // nothing to lose

    plant(place, {"U.b"});
    place.tick(1, 1);
    EXPECT_EQ(place.files(), 0U);  // he is at work
    place.tick(3, 3);
    EXPECT_EQ(place.kept(), Texts{place.wanted()});

    plant(place, {"U.c"});
    const Texts before = place.kept();
    place.tick(10, 5);  // too soon after the last
    EXPECT_EQ(place.kept(), before);
    place.tick(49, 0);  // no pause
    EXPECT_EQ(place.kept(), before);
    place.tick(50, 0);  // too long without one
    EXPECT_EQ(place.kept(), Texts{place.wanted()});
    EXPECT_EQ(place.files(), 3U);

    // Edits that leave the saved flag alone count as well.
    place.configuration.state.saved = true;
    place.click("U.c");
    place.run("mnuDelete");
    place.tick(100, 5);
    EXPECT_EQ(place.kept(), Texts{place.wanted()});
    place.item("U.b").sComment("pasted");
    ++place.configuration.state.otherEdits;
    place.tick(150, 5);
    EXPECT_EQ(place.kept(), Texts{place.wanted()});
    EXPECT_TRUE(place.messages.take().size() == 1);  // the question of Delete
}

TEST(Recovery, GoesAwayWithTheReason) {
    for (const std::string way : {"save", "close", "new", "exit"}) {
        Edited place;
        plant(place, {"U.b"});
        place.configuration.state.saved = false;
        place.tick(3, 3);
        ASSERT_EQ(place.files(), 3U);
        place.messages.answers = {way == "save" ? Answer::Yes : Answer::No};
        if (way == "save") place.run("mnuSaveCfg");
        if (way == "close") place.run("mnuCloseCfg");
        if (way == "new") place.newConfiguration(kRtu);
        if (way == "exit") place.editor.Form_Unload();
        place.tick(100, 100);
        EXPECT_EQ(place.files(), 0U) << way;
    }
}

// He wanted to save, could not, and the window closes all the same.
TEST(Recovery, StaysWhenTheLastSaveFailed) {
    Edited place;
    plant(place, {"U.b"});
    const std::string wanted = place.wanted();
    place.configuration.setFilePath(place.path("missing/test.xml"));
    place.configuration.state.saved = false;
    place.messages.answers = {Answer::Yes};
    place.editor.Form_Unload();
    EXPECT_EQ(place.kept(), Texts{wanted});
}

TEST(Recovery, AfterACrash) {
    Edited place;
    plant(place, {"U.b"});
    place.tick(3, 3);
    writeFile(place.path("test.xml"), "written by another program");
    const std::string path = place.path("test.xml");

    Edited next;
    crash(place, next);
    next.messages.answers = {Answer::Yes};
    EXPECT_TRUE(next.editor.offerRecovery());
    EXPECT_EQ(next.messages.take(), Texts{kQuestion + path + "?"});
    EXPECT_EQ(next.messages.buttonsShown.back(), Buttons::YesNo);
    EXPECT_EQ(next.configuration.tree.root()->text(), path);
    EXPECT_FALSE(next.configuration.state.saved);
    EXPECT_EQ(next.wanted(), place.wanted());
    EXPECT_EQ(disagreements(next.configuration), Texts{});

    Edited third;  // the second run dies before it has kept anything of its own
    crash(next, third);
    third.messages.answers = {Answer::Yes};
    EXPECT_TRUE(third.editor.offerRecovery());
    third.tick(3, 3);
    EXPECT_EQ(third.files(), 3U);  // its own in the place of the others
    third.messages.take();
    third.messages.answers = {Answer::No};
    third.run("mnuSaveCfg");
    EXPECT_TRUE(third.messages.take()[0].find("was changed by another program") != std::string::npos);

    Edited declines;
    crash(place, declines);
    declines.messages.answers = {Answer::No};
    EXPECT_FALSE(declines.editor.offerRecovery());
    EXPECT_EQ(declines.files(), 0U);
    EXPECT_FALSE(declines.editor.offerRecovery());
    EXPECT_EQ(declines.messages.take().size(), 1U);
}

// A unit dragged onto another leaves a configuration that no save takes; the rest of the work is kept all the
// same.
TEST(Recovery, KeepsWhatCanBeKept) {
    Edited place;
    plant(place, {"V", "V.c"});
    place.drag("U", "V");
    plant(place, {"V.d"});
    place.run("mnuSaveCfg");
    EXPECT_TRUE(place.messages.take().back().starts_with(" Error n. 35601"));
    place.tick(3, 3);
    ASSERT_EQ(place.kept().size(), 1U);

    Edited next;
    crash(place, next);
    next.messages.answers = {Answer::Yes};
    EXPECT_TRUE(next.editor.offerRecovery());
    EXPECT_TRUE(next.has("V.c") && next.has("V.d"));
}

TEST(Recovery, RemainsWithoutAWholeContentAreNotOffered) {
    Edited place;
    fs::create_directory(place.folder / "state");
    for (const char* file :
         {"1-1.lock", "1-1-1.xml", "2-2.lock", "2-2.ini", "3-3.lock", "3-3.ini", "3-3-1.xml"}) {
        writeFile(place.folder / "state" / file, "");
    }
    writeFile(place.folder / "state" / "2-2.ini",
              "[recovery]\ncontent=2-2-1.xml\npath=" + place.path("test.xml"));
    writeFile(place.folder / "state" / "3-3.ini",
              "[recovery]\ncontent=../test.xml\npath=" + place.path("test.xml"));
    EXPECT_FALSE(place.editor.offerRecovery());
    EXPECT_TRUE(place.messages.take().empty());
    EXPECT_EQ(place.files(), 0U);
    EXPECT_TRUE(fs::exists(place.path("test.xml")));
}

TEST(Recovery, EditorsThatLiveKeepTheirFiles) {
    Edited one;
    Edited two(one.folder / "state");
    plant(one, {"U.one"});
    plant(two, {"U.two"});
    one.tick(3, 3);
    two.tick(3, 3);
    EXPECT_EQ(one.files(), 6U);
    EXPECT_FALSE(two.editor.offerRecovery());
    two.editor.Form_Unload();
    EXPECT_EQ(one.kept(), Texts{one.wanted()});
}

TEST(Recovery, SlicesAreShortAndGiveUpWhenSomethingChanges) {
    Edited place;
    std::vector<std::string> keys{"V"};
    for (int branch = 0; branch < 100; ++branch) {
        const std::string key = "V.B" + std::to_string(branch);
        keys.push_back(key + "/");
        for (int i = 0; i < 1000; ++i) keys.push_back(key + ".i" + std::to_string(i));
    }
    plant(place, keys);
    RecoveryWriter writer(place.configuration, place.path("slices.xml"));
    EXPECT_EQ(writer.step(0ms), RecoveryWriter::Outcome::More);
    place.configuration.tree.keepSorted(place.node("V.B7"));  // an order that is no edit
    EXPECT_EQ(writer.step(0ms), RecoveryWriter::Outcome::Outdated);

    std::clock_t longest = 0;  // of processor time: other programs do not count
    const auto now = place.start + 3s;
    for (auto next = 0ms; next < 1s;) {
        const std::clock_t begin = std::clock();
        next = place.editor.idle(now, place.start);
        longest = std::max(longest, std::clock() - begin);
    }
    EXPECT_EQ(place.kept(), Texts{place.wanted()});
    EXPECT_LT(longest * 1000 / CLOCKS_PER_SEC, 50);
    RecordProperty("longest_slice_us", static_cast<int>(longest * 1'000'000 / CLOCKS_PER_SEC));
}

}  // namespace trevandix::testing
