// Random commands: tree, collections and file agree, nothing crashes, and nothing leaks. And the check of
// that agreement, which every test of the editor relies on, finds what it is there for.
#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <algorithm>
#include <functional>
#include <random>

#include "Plant.h"
#include "Targets.h"
#include "platform/Text.h"
#include "xmlfile/Unreadable.h"

namespace trevandix::testing {

namespace {

std::string randomBytes(unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(10'000, ' ');
    std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
    return bytes;
}

Texts sortedContents(const Configuration& configuration) {
    Texts lines = fileContents(configuration);
    std::ranges::sort(lines);
    return lines;
}

/// A file can only give back what it can hold: what is below a unit, under keys that stay apart when branch
/// names are in capitals.
bool survivesAFile(const Configuration& configuration) {
    Texts places;
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* n = nextBelow(root, root); n != nullptr; n = nextBelow(*n, root)) {
        const bool item = n->tag() == NodeTag::Item;
        const NodeTag above = n->parent()->tag();
        if (item || n->tag() == NodeTag::Branch) {
            if (above != NodeTag::Plc && above != NodeTag::Branch) return false;
        }
        if (!item && n->text() == "tag") return false;
        const std::string_view name = item ? configuration.items.at(n->key())->sName() : n->text();
        places.push_back(upperCased(Key(Key(n->key().parent()), name).view()));
    }
    std::ranges::sort(places);
    return std::ranges::adjacent_find(places) == places.end();
}

}  // namespace

TEST(EditingSequences, TreeCollectionsAndFileAgree) {
    int comparedFiles = 0;
    std::size_t shared = 0;
    for (unsigned seed = 1; seed <= 160; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        int step = 0;
        const auto compare = [&](Workplace& place) {
            if (++step % 10 != 0 || !survivesAFile(place.configuration)) return;
            place.run("mnuSaveCfg");
            const std::string bytes = readFile(place.configuration.state.filePath);
            // Then a parser takes some of the text for markup.
            if (!whatMakesUnreadable(place.configuration).empty() && isXml(bytes)) return;
            for (const auto& [key, item] : place.configuration.items) shared += item->sKey() == key ? 0 : 1;
            ++comparedFiles;
            Workplace second;
            second.openText(bytes);
            ASSERT_EQ(sortedContents(second.configuration), sortedContents(place.configuration));
        };
        fuzz::Commands(randomBytes(seed), {.mostSteps = 150, .after = compare});
    }
    EXPECT_GT(comparedFiles, 30);
    EXPECT_GT(shared, 20U);
}

TEST(EditingSequences, NothingCrashesACarelessUser) {
    for (unsigned seed = 1; seed <= 80; ++seed)
        EXPECT_NO_THROW(fuzz::Commands(randomBytes(seed), {.mostSteps = 80, .careless = true})) << seed;
}

TEST(EditingSequences, EveryDisagreementIsNamed) {
    const Key item("U.B.x");
    const std::vector<std::pair<std::function<void(Configuration&)>, Texts>> rows{
        {[](Configuration&) {}, {}},
        {[&](Configuration& c) { behindTheDoor(c.items).remove(item); }, {"item node without record: U.B.x"}},
        {[&](Configuration& c) { behindTheDoor(c.tree).remove(c.tree.at(item)); },
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
TEST(EditingSequences, AThousandRoundsOfOpenAndCloseKeepNoMemory) {
    Workplace place;
    const std::string text = readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml");
    const auto afterRounds = [&](int rounds) {
        for (int i = 0; i < rounds; ++i) {
            place.openText(text);
            place.run("mnuCloseCfg");
            place.window.percents.clear();
            place.pointer.shapes.clear();
            place.fileDialog.calls.clear();
        }
        return mallinfo2().uordblks;
    };
    const std::size_t before = afterRounds(10);
    EXPECT_LT(afterRounds(1000), before + 4096);
}
#endif

}  // namespace trevandix::testing
