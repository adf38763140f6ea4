// The check that every test of the editor relies on finds what it is there for; and nothing leaks.
#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "FakePlatform.h"
#include "Plant.h"

namespace trevandix::testing {

TEST(Invariants, EveryDisagreementIsNamed) {
    const auto faults = [](auto breakIt) {
        PlantedWorkplace place({"U", "U.B/", "U.B.x"});
        EXPECT_EQ(disagreements(place.configuration), Texts{});
        breakIt(place.configuration);
        return disagreements(place.configuration);
    };
    const Key item("U.B.x");
    EXPECT_EQ(faults([&](Configuration& c) { c.items.remove(item); }),
              Texts{"item node without record: U.B.x"});
    EXPECT_EQ(faults([&](Configuration& c) { c.tree.remove(c.tree.at(item)); }),
              Texts{"item record without node: U.B.x"});
    EXPECT_EQ(faults([&](Configuration& c) { c.tree.setText(c.tree.at(item), "y"); }),
              Texts{"key of another place: U.B.x"});
    EXPECT_EQ(faults([&](Configuration& c) { c.tree.setKey(c.tree.at(item), Key()); }).size(), 4U);
    EXPECT_EQ(faults([&](Configuration& c) { c.branches.add(nullptr, item); }),
              (Texts{"key without record: U.B.x", "branch record without node: U.B.x"}));
}

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
TEST(Invariants, AThousandRoundsOfOpenAndCloseKeepNoMemory) {
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
