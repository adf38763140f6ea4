// Tests unsaved work on the disk: when it is written, its content, who is offered it, and when it is deleted.
#include <gtest/gtest.h>

#include "FakePlatform.h"
#include "Plant.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix::testing {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

struct Edited : PlantedWorkplace {
    explicit Edited(const fs::path& state = {}) : PlantedWorkplace({"U", "U.a"}, state) { saved(); }

    /// Runs the window's timer `second` seconds after the start; the user has been idle for `pause` seconds.
    void tick(int second, int pause) {
        const auto now = start + second * 1s;
        editor.idle(now, now - pause * 1s);
    }
    std::vector<fs::path> files() const {
        std::error_code none;
        return {fs::directory_iterator(folder / "state", none), fs::directory_iterator()};
    }
    Texts kept() const {
        Texts found;
        for (const fs::path& file : files()) {
            if (file.extension() == ".xml") found.push_back(readFile(file));
        }
        return found;
    }
    /// Runs the command; an empty one closes the window.
    void leave(const std::string& way) {
        if (!way.empty()) run(way);
        if (way.empty() || way == "mnuExit") editor.Form_Unload();
    }
    /// The file that saving the configuration now would write.
    std::string wanted() {
        ConfigurationWriter(configuration).write(path("wanted.xml"));
        return readFile(path("wanted.xml"));
    }

    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

/// The next start after a crash: finds the earlier run's files, without its locks, and offers them.
struct Next : Edited {
    Next(const Edited& before, Answer answer, Answer second = Answer::No) {
        fs::create_directory(folder / "state");
        for (const fs::path& file : before.files()) {
            const bool lock = file.extension() == ".lock";  // a held lock cannot be read on every system
            writeFile(folder / "state" / file.filename(), lock ? "" : readFile(file));
        }
        messages.answers = {answer, second};
        EXPECT_EQ(editor.offerRecovery(), answer == Answer::Yes || second == Answer::Yes);
    }
};

}  // namespace

TEST(Recovery, WritesChangesWhenTheUserPauses) {
    Edited place;
    place.tick(0, 100);
    EXPECT_TRUE(place.files().empty());  // no changes
    std::string before;
    // At `second`, after a pause of `pause` seconds: expects the work to be written or not.
    const auto expectAt = [&](int second, int pause, bool written) {
        place.tick(second, pause);
        if (written) before = place.wanted();
        EXPECT_EQ(place.kept(), before.empty() ? Texts{} : Texts{before}) << second;
    };
    plant(place, {"U.b"});
    expectAt(1, 1, false);  // pause too short
    expectAt(3, 3, true);
    plant(place, {"U.c"});
    expectAt(10, 5, false);  // too soon after the last write
    expectAt(49, 0, false);  // no pause
    expectAt(50, 0, true);   // waited too long for a pause
    EXPECT_EQ(place.files().size(), 3U);
}

// It is kept if the user wants to save while closing the window and saving fails.
TEST(Recovery, IsDeletedAfterSavingOrDeclining) {
    for (const std::string way : {"mnuSaveCfg", "mnuCloseCfg", "mnuNewCfg", "mnuExit", ""}) {
        Edited place;
        plant(place, {"U.b"});
        const Texts stays = way.empty() ? Texts{place.wanted()} : Texts{};
        place.configuration.setSaved(false);
        place.tick(3, 3);
        ASSERT_EQ(place.files().size(), 3U);
        if (way.empty()) place.configuration.setFilePath(place.path("missing/test.xml"));
        if (!way.empty() && way != "mnuSaveCfg") place.messages.answers = {Answer::No};
        place.leave(way);
        if (!way.empty()) place.tick(100, 100);
        EXPECT_EQ(place.kept(), stays) << way;
        EXPECT_EQ(place.files().empty(), stays.empty()) << way;
    }
}

TEST(Recovery, OffersUnsavedWorkAfterACrash) {
    Edited place;
    // What a parser would take for markup.
    plant(place, {"U.b", "U.tag/", "U.tag.name/", "U.tag.b", "U.B/", "U.B.Tag/"});
    plantUnit(place.configuration, "V", "1.1.1.1\" port=\"77");
    place.item("U.b").sComment("&amp;<b/>");
    place.tick(3, 3);
    writeFile(place.path("test.xml"), "written by another program");
    const std::string path = place.path("test.xml");

    Next next(place, Answer::Yes);
    EXPECT_EQ(next.messages.take(),
              Texts{"The editor was not closed properly. Recover the unsaved changes to " + path + "?"});
    EXPECT_EQ(next.messages.buttons, Buttons::YesNo);
    EXPECT_EQ(next.configuration.tree.root()->text(), path);
    EXPECT_FALSE(next.configuration.state.saved);
    EXPECT_EQ(fileContents(next.configuration), fileContents(place.configuration));
    EXPECT_EQ(next.wrong(), Texts{});

    Next third(next, Answer::Yes);  // the second run crashed before it wrote anything
    third.tick(3, 3);
    EXPECT_EQ(third.files().size(), 3U);  // replace the earlier run's files
    third.messages.texts.clear();
    third.messages.answers = {Answer::No};
    third.run("mnuSaveCfg");
    EXPECT_NE(third.messages.texts[0].find("was changed by another program"), std::string::npos);

    Next declines(place, Answer::No);
    EXPECT_TRUE(declines.files().empty());
    EXPECT_FALSE(declines.editor.offerRecovery());
    EXPECT_EQ(declines.messages.take().size(), 1U);
}

// Changes that do not clear the saved flag. One run may leave several configurations.
TEST(Recovery, KeepsChangesThatNoQuestionCovers) {
    for (const std::string way : {"mnuCloseCfg", "mnuNewCfg", "mnuOpenCfg", "mnuExit", ""}) {
        SCOPED_TRACE(way);
        Edited place;
        const std::string path = place.path("test.xml");
        const std::string before = place.wanted();
        place.fileDialog.choice = path;
        place.at("U.a").run("mnuDelete");
        const std::string wanted = place.wanted();
        place.messages.take();
        place.leave(way);
        place.tick(100, 100);
        EXPECT_EQ(place.messages.take(), Texts{});
        EXPECT_EQ(place.kept(), Texts{wanted});
        if (way == "mnuOpenCfg") {
            EXPECT_EQ(place.wanted(), before);
            play(place, {{"U; drag U.a to top; mnuCloseCfg", ""}});
            EXPECT_EQ(place.kept().size(), 2U);
            EXPECT_EQ(Next(place, Answer::No, Answer::Yes).messages.take().size(), 2U);
        }
        Next next(place, Answer::Yes);
        const std::string question = next.messages.take().at(0);
        EXPECT_TRUE(question.starts_with("Changes to " + path + " were not saved on 2") &&
                    question.ends_with(". Recover them?"))
            << question;
        EXPECT_EQ(next.wanted(), wanted);
        EXPECT_FALSE(next.configuration.state.saved);
    }
    // If the work cannot be written, the user is told and the configuration closes anyway.
    Edited full;
    writeFile(full.folder / "state", "no folder");
    full.at("U.a").run("mnuDelete");
    full.messages.take();
    play(full, {{"mnuCloseCfg", "said " + failure("70  Permission denied", "keepForNextStart")[0]}});
    EXPECT_FALSE(full.window.treeVisible);
}

// A unit dragged onto another unit makes saving fail. Recovery keeps everything else.
TEST(Recovery, SkipsUnitsThatCannotBeSaved) {
    Edited place;
    plant(place, {"V", "V.c"});
    drag(place, "U", "V");
    plant(place, {"V.d"});
    place.run("mnuSaveCfg");
    EXPECT_TRUE(place.messages.take().back().starts_with(" Error n. 35601"));
    place.tick(3, 3);
    Next next(place, Answer::Yes);
    EXPECT_TRUE(next.has("V.c") && next.has("V.d"));
}

// Incomplete work is not offered. Unreadable work is reported once, kept, and does not disturb later starts.
TEST(Recovery, ReportsUnreadableWorkOnceAndKeepsIt) {
    Edited place;
    const fs::path state = place.folder / "state";
    const std::string path = place.path("test.xml");
    fs::create_directories(state / "4-4.ini");  // a note that cannot be opened
    const auto note = [&](const std::string& content) {
        return "[recovery]\ncontent=" + content + "\npath=" + path;
    };
    for (const auto& [file, text] : Fields{{"1-1-1.xml", "half"},
                                           {"2-2.ini", note("2-2-1.xml")},
                                           {"3-3.ini", note("../test.xml")},
                                           {"3-3-1.xml", ""},
                                           {"4-4-7.xml", "work"},
                                           {"5-5.ini", "nonsense"},
                                           {"5-5-1.xml", "work"},
                                           {"6-6.ini", note("6-6-1.xml")},
                                           {"6-6-1.xml", "work"}}) {
        writeFile(state / file, text);
        writeFile(state / (file.substr(0, 3) + ".lock"), "");
    }
    EXPECT_FALSE(place.editor.offerRecovery());
    const Texts told = place.messages.take();
    ASSERT_EQ(told.size(), 5U);
    for (const auto& [message, file] : std::vector<std::pair<std::size_t, const char*>>{
             {0, "4-4-7.xml"}, {1, "5-5-1.xml"}, {4, "6-6-1.xml"}}) {
        const std::string kept = (state / file).string();
        const std::string whose = message == 4 ? "to " + path : "of an earlier run";
        EXPECT_EQ(told[message],
                  "Unsaved changes " + whose + " cannot be read. They are kept as " + kept + ".");
        EXPECT_EQ(readFile(kept), "work");
    }
    EXPECT_FALSE(!place.window.panel.empty() || place.editor.offerRecovery());
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.files().size(), 3U);  // without notes and locks
    EXPECT_TRUE(fs::exists(path));
}

TEST(Recovery, RunningEditorsKeepTheirFiles) {
    Edited one;
    Edited two(one.folder / "state");
    plant(one, {"U.one"});
    plant(two, {"U.two"});
    one.tick(3, 3);
    two.tick(3, 3);
    EXPECT_EQ(one.files().size(), 6U);
    EXPECT_FALSE(two.editor.offerRecovery());
    two.configuration.setSaved(false);
    two.messages.answers = {Answer::No};
    two.editor.Form_Unload();
    EXPECT_EQ(one.kept(), Texts{one.wanted()});
}

}  // namespace trevandix::testing
