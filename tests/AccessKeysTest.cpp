// Tests how captions get access keys (Alt and a letter).
#include <gtest/gtest.h>

#include "FakePlatform.h"
#include "platform/Form.h"

namespace trevandix::testing {

TEST(AccessKeys, PreferTheFirstLetterOfAWord) {
    AccessKeys keys;
    keys.reserve("E&xit");
    for (const auto& [caption, marked] : Fields{{"Add Item", "&Add Item"},
                                                {"Add Group....", "Add &Group...."},
                                                {"Address", "A&ddress"},
                                                {"aa", "aa"},  // no free letter
                                                {"X-axis", "X-ax&is"},
                                                {"E&xit", "E&xit"},
                                                {"R&&D 2", "&R&&D 2"},
                                                {"B& B1", "&B& B1"},
                                                {"B 1", "B &1"},
                                                {"\xC3\xA9t\xC3\xA9", "\xC3\xA9&t\xC3\xA9"},
                                                {"", ""}})
        EXPECT_EQ(keys.marked(caption), marked);
    // When a control changes its caption, its old letter becomes free, for the control itself too.
    EXPECT_EQ(keys.marked("Group", AccessKeys::keyOf("Add &Group....")), "&Group");
    EXPECT_EQ(keys.marked("Save", 'G'), "&Save");
    EXPECT_EQ(keys.marked("Go"), "&Go");
}

}  // namespace trevandix::testing
