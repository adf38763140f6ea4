#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

TEST(ClipboardEditing, PasteReportsWhatFailed) {
    PlantedWorkplace place({"U", "U.A/", "U.B/", "U.B.y/", "U.A.x", "U.A.y", "U.A.z"});
    auto& buffer = behindTheDoor(place.configuration.state).copyBuffer;
    buffer.clear();
    play(place, {{"U.A; mnuPaste", "said No items to paste."}});
    buffer = {nullptr, nullptr};
    play(place,
         {{"mnuPaste", "said Copied object can not be added here "},
          {"U.A: x y z; mnuCopy; top; mnuPaste; U; mnuPaste; ModBus; mnuPaste; U.A.x; mnuPaste", ""},
          // The branch y already has this key.
          {"U.B; mnuPaste", "tree U: A(x y z) B(x y) | said " + failure(kKeyNotUnique, "mnuPaste_Click")[0]},
          {"mnuPaste", "said " + failure(kKeyInCollection, "mnuPaste_Click")[0]}});
    EXPECT_EQ(place.configuration.state.pasteCounter, 0);
}

}  // namespace trevandix::testing
