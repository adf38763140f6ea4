// Which letter of a caption the Alt key goes with.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "platform/AccessKeys.h"

namespace trevandix::testing {

TEST(AccessKeys, TakesTheFirstFreeLetterOfAWordThenAnyFreeOne) {
    AccessKeys keys;
    keys.reserve("E&xit");
    EXPECT_EQ(keys.marked("Add Item"), "&Add Item");
    EXPECT_EQ(keys.marked("Add Group...."), "Add &Group....");
    EXPECT_EQ(keys.marked("Address"), "A&ddress");
    EXPECT_EQ(keys.marked("aa"), "aa");  // none is free
    EXPECT_EQ(keys.marked("X-axis"), "X-ax&is");
    EXPECT_EQ(keys.marked("E&xit"), "E&xit");
    EXPECT_EQ(keys.marked("R&&D 2"), "&R&&D 2");
    EXPECT_EQ(keys.marked("\xC3\xA9t\xC3\xA9"), "\xC3\xA9&t\xC3\xA9");
    EXPECT_EQ(keys.marked(""), "");
    // A control that changes its caption gives its letter back, for itself too.
    EXPECT_EQ(keys.marked("Group", AccessKeys::keyOf("Add &Group....")), "&Group");
    EXPECT_EQ(keys.marked("Save", 'G'), "&Save");
    EXPECT_EQ(keys.marked("Go"), "&Go");
}

TEST(AccessKeys, NeverClashAndChangeNothingElse) {
    std::minstd_rand random(7);
    const std::string letters = "ABab  12&.";
    for (int round = 0; round < 2000; ++round) {
        AccessKeys keys;
        std::set<char> seen;
        for (int control = 0; control < 8; ++control) {
            std::string caption(random() % 6, ' ');
            std::ranges::generate(caption, [&] { return letters[random() % letters.size()]; });
            if (AccessKeys::keyOf(caption) != 0 || caption.ends_with('&')) continue;
            const std::string marked = keys.marked(caption);
            const char key = AccessKeys::keyOf(marked);
            if (marked == caption) continue;
            ASSERT_TRUE(seen.insert(key).second) << marked;
            std::string without = marked;
            const auto mark = std::ranges::mismatch(caption, without).in2;
            without.erase(mark);
            ASSERT_EQ(without, caption);
        }
    }
}

}  // namespace trevandix::testing
