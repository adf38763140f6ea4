// Tests failed and interrupted saves: the old or the new content is always complete, and the user is told.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "FakePlatform.h"
#include "Plant.h"

namespace trevandix::testing {

namespace {

namespace fs = std::filesystem;

// An open configuration with a saved file and one unsaved item.
struct Changed : PlantedWorkplace {
    Changed() : PlantedWorkplace({"U", "U.a"}) {
        old = saved();
        plant(*this, {"U.b"});
        configuration.setSaved(false);
    }
    std::string old;
};

Texts names(const fs::path& folder) {
    Texts found;
    for (const auto& entry : fs::directory_iterator(folder))
        found.push_back(entry.path().filename().string());
    std::ranges::sort(found);
    return found;
}

}  // namespace

// A missing record makes the writer fail half-way, repeatedly. The partial file never becomes the backup, and
// no backup is overwritten. A successful save leaves no other file.
TEST(SaveSafety, FailedSavesKeepTheLastCompleteFile) {
    Changed place;
    const std::string path = place.path("test.xml");
    auto& items = behindTheDoor(place.configuration.items);
    const auto item = items.remove("U.b").record();
    for (int attempt = 0; attempt < 3; ++attempt) {
        place.run("mnuSaveCfg");
        EXPECT_EQ(place.messages.take().back(),
                  " Error n. 5  Invalid procedure call or argument: the previous file is kept as " + path +
                      ".bak in PrintBranch");
        EXPECT_EQ(readFile(path + ".bak"), place.old);
        EXPECT_NE(readFile(path), place.old);  // partly written
        EXPECT_FALSE(place.configuration.state.saved);
    }
    items.add(item, Key("U.b"));
    place.run("mnuSaveCfg");
    EXPECT_EQ(names(place.folder), Texts{"test.xml"});
    items.remove("U.b");
    place.run("mnuSaveCfg");
    writeFile(path, "by another");
    place.messages.answers = {Answer::Yes, Answer::Yes};
    place.run("mnuSaveCfg");
    EXPECT_EQ(readFile(path + ".bak2"), "by another");
    EXPECT_EQ(names(place.folder), (Texts{"test.xml", "test.xml.bak", "test.xml.bak2"}));
    const std::string rescued = readFile(path + ".bak");
    items.add(item, Key("U.b"));
    place.run("mnuSaveCfg");
    EXPECT_EQ(names(place.folder), (Texts{"test.xml", "test.xml.bak"}));
    EXPECT_EQ(readFile(path + ".bak"), rescued);
    SafeFile file;
    for (int attempt = 0; attempt < 2; ++attempt) {  // whatever a writer throws
        EXPECT_THROW(file.replace(path, [](OutputFile&) { throw std::length_error(""); }), std::length_error);
        EXPECT_EQ(names(place.folder).size(), 3U);
    }
}

// A program killed while saving leaves a truncated file or none. The message names the last complete backup.
TEST(SaveSafety, OpenNamesTheBackupOfATruncatedFile) {
    Changed place;
    const std::string path = place.path("test.xml");
    const std::string half = place.old.substr(0, place.old.size() / 2);
    for (const std::string& content : {half, std::string()}) {
        for (const auto& [first, second, named] :
             std::vector<std::array<std::string, 3>>{{"", "", ""},
                                                     {half, "", ""},
                                                     {place.old, half, ".bak"},
                                                     {place.old, place.old + "\n", ".bak2"}}) {
            for (const auto& [end, bytes] : Fields{{"", content}, {".bak", first}, {".bak2", second}}) {
                fs::remove(path + end);
                if (!bytes.empty()) writeFile(path + end, bytes);
            }
            Workplace opening;
            opening.editor.openFile(path);
            const std::string told = opening.messages.take().at(0);
            EXPECT_TRUE(
                told.starts_with(content.empty() ? " Error n. 53  File not found" : " Error n. 1001  "));
            EXPECT_EQ(told.ends_with("a whole copy is " + path + named + " in ImportXML"), !named.empty())
                << told;
        }
    }
}

TEST(SaveSafety, AsksBeforeOverwritingChangesOfAnotherProgram) {
    Changed place;
    const std::string path = place.path("test.xml");
    const std::string usual = "File " + path + " already existing. Overwrite?";
    // First only the size differs, then only the time.
    for (const bool size : {true, false}) {
        const auto before = fs::last_write_time(path);
        const auto after = before + std::chrono::seconds(size ? 0 : 90);
        writeFile(path, size ? "by another" : readFile(path));
        fs::last_write_time(path, after);
        place.messages.answers = {Answer::No};
        place.run("mnuSaveCfg");
        const auto asked = place.messages.take();
        ASSERT_EQ(asked.size(), 1U);
        const FileStamp ours{0, before};
        const FileStamp theirs{0, after};
        EXPECT_EQ(asked[0], "File " + path + " was changed by another program on " + theirs.localTime() +
                                " (opened or saved here on " + ours.localTime() + "). Save all the same?");
        EXPECT_EQ(place.messages.buttons, Buttons::NoYes);
        EXPECT_EQ(size, readFile(path) == "by another");

        place.messages.answers = {Answer::Yes, Answer::Yes};
        place.run("mnuSaveCfg");
        EXPECT_EQ(place.messages.take(), (Texts{asked[0], usual, path + " saved"}));
    }
    fs::remove(path);
    place.run("mnuSaveCfg");
    EXPECT_EQ(place.messages.take(), Texts{path + " saved"});
    EXPECT_EQ(FileStamp().localTime().size(), std::string("2024-05-01 13:45:00").size());
}

}  // namespace trevandix::testing
