#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {
const std::string kRefused = " | said Unable to drag nodes here";
const std::string kInUse = " | said Name already in use at this level. Move not allowed";
}  // namespace

TEST(DragAndDrop, MovesAndCopiesOnlyToAllowedTargets) {
    struct Case {
        std::string source;
        std::string target;
        std::string result;  // the new key, or the expected message
    };
    const std::vector<Case> cases{
        {"U.A.x", "V", "V.x"},           {"U.A.B", "V.A", "V.A.B"},    {"U.A.x", "top", ".x"},
        {"U.A.B", "ModBus", "ModBus.B"}, {"U.A.x", "V.run", kRefused}, {"U.A.x", "U.A.x", kRefused},
        {"U.A", "U.A", kRefused},        {"U.A", "U.A.B", kRefused},   {"top", "U", ""},
        {"top", "U.A.x", kRefused},      {"U.A.x", "U.A", ""},         {"U", "top", ""},
        {"U.A.x", "V.B", kInUse},        {"U.A", "V", kInUse},
    };
    for (const Case& c : cases) {
        for (const bool control : {false, true}) {
            SCOPED_TRACE(c.source + " to " + c.target);
            PlantedWorkplace place(
                {"U", "U.A/", "U.A.B/", "U.A.B.x", "U.A.x", "V", "V.A/", "V.B/", "V.B.x", "V.run"});
            const bool done = c.result != "" && c.result != kRefused && c.result != kInUse;
            EXPECT_EQ(drag(place, c.source, c.target, control), done);  // as the pointer showed
            play(place,
                 {{"", done ? "saved" : "saved | tree top: ModBus U(A(B(x) x)) V(A B(x) run)" + c.result}});
            EXPECT_EQ(place.messages.icon, c.result == kRefused ? Icon::Exclamation
                                           : c.result == kInUse ? Icon::Critical
                                                                : Icon::None);
            EXPECT_EQ(place.wrong(), Texts());
            EXPECT_EQ(place.configuration.tree.dropHighlight() == nullptr, done);
            EXPECT_EQ(place.pointer.shapes.back(), done ? Pointer::Default : Pointer::Icon);
            if (!done) continue;
            EXPECT_EQ(place.has(c.source), control);
            const TreeNode& placed = place.node(c.result);
            EXPECT_TRUE(placed.expanded());
            const Key last = placed.firstChild() != nullptr ? placed.firstChild()->key() : placed.key();
            EXPECT_EQ(place.configuration.items.at(last)->sKey(), last);
        }
    }
}

TEST(DragAndDrop, FailedDropKeepsWhatWasCopied) {
    for (const std::string way : {"drag", "copy"}) {
        // The item "A.x" of V has the key that the copy of U.A.x needs.
        PlantedWorkplace place({"U", "U.A/", "U.A.w", "U.A.x", "V"});
        plantItem(place.configuration, place.node("V"), "A.x");
        play(place, {{way + " U.A to V", "tree top: ModBus U(A(w x)) V(A.x A(w))" + kInUse}});
        EXPECT_EQ(place.wrong(), Texts()) << "nodes without their records";
        // A record without a node has the key: the drop fails without a message.
        play(place, {{"drag V to U.A", ""}});
        behindTheDoor(place.configuration.tree)
            .addChild(*place.configuration.tree.root(), "V", "V", {NodeTag::Plc});
        play(place, {{"drag U.A to V", "tree V: A"}});
        EXPECT_TRUE(place.has("U.A.w") && place.configuration.branches.contains("U.A"));
    }
}

TEST(DragAndDrop, CanEndWithoutADrop) {
    PlantedWorkplace place({"U", "U.x", "V", "V.x"});
    const auto start = [&] {
        place.editor.TreeView1_MouseDown(&place.node("U.x"), {});
        place.editor.TreeView1_OLEStartDrag();
    };
    EXPECT_FALSE(place.editor.TreeView1_MouseDown(nullptr, {}));
    start();
    place.editor.TreeView1_OLEDragOver(&place.node("V"));
    EXPECT_FALSE(place.editor.dropAllowed(nullptr));
    place.editor.dragCancelled();
    EXPECT_EQ(place.configuration.tree.dropHighlight(), nullptr);
    EXPECT_EQ(place.pointer.shapes.back(), Pointer::Default);
    play(place, {{"drag U.x to V", "tree V: x" + kInUse}});  // the highlight remains
    start();
    place.editor.TreeView1_OLEDragDrop();  // over no node
    EXPECT_EQ(place.pointer.shapes.back(), Pointer::Default);
    // The dragged node is removed during the drag.
    start();
    place.editor.TreeView1_OLEDragOver(&place.node("V"));
    place.configuration.removeItem("U.x");
    EXPECT_FALSE(place.editor.dropAllowed(&place.node("V")));
    place.editor.TreeView1_OLEDragDrop();
    play(place, {{"", "tree top: ModBus U V(x)"}});
}

}  // namespace trevandix::testing
