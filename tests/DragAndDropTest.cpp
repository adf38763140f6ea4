#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {
constexpr const char* kRefused = "Unable to drag nodes here";
constexpr const char* kInUse = "Name already in use at this level. Move not allowed";
}  // namespace

TEST(DragAndDrop, MovesAndCopiesWhereItMay) {
    struct Case {
        std::string_view source;
        std::string_view target;
        Icon icon;
        std::string_view placed;  // empty where nothing may change
    };
    const Texts all{"U", "U.A/", "U.A.B/", "U.A.B.x", "U.A.x", "V", "V.A/", "V.B/", "V.B.x", "V.run"};
    const std::vector<Case> cases{
        {"U.A.x", "V", Icon::None, "V.x"},
        {"U.A.B", "V.A", Icon::None, "V.A.B"},
        {"U.A.x", "", Icon::None, ".x"},
        {"U.A.B", "ModBus", Icon::None, "ModBus.B"},
        {"U.A.x", "V.run", Icon::Exclamation, ""},
        {"U.A.x", "U.A.x", Icon::Exclamation, ""},
        {"U.A", "U.A", Icon::Exclamation, ""},
        {"U.A", "U.A.B", Icon::Exclamation, ""},
        {"", "U", Icon::None, ""},
        {"", "U.A.x", Icon::Exclamation, ""},
        {"U.A.x", "U.A", Icon::None, ""},
        {"U", "", Icon::None, ""},
        {"U.A.x", "V.B", Icon::Critical, ""},
        {"U.A", "V", Icon::Critical, ""},
    };
    for (const Case& c : cases) {
        for (const bool control : {false, true}) {
            PlantedWorkplace place(all);
            SCOPED_TRACE(std::string(c.source) + " to " + std::string(c.target) +
                         (control ? " copied" : " moved"));
            const Texts before = place.below("");
            TreeNode* target = c.target.empty() ? place.configuration.tree.root() : &place.node(c.target);
            const bool done = !c.placed.empty();
            EXPECT_EQ(place.drag(c.source, c.target, control), done);  // the pointer told it beforehand
            const bool refused = c.icon == Icon::Exclamation;
            EXPECT_EQ(place.messages.texts,
                      c.icon == Icon::None ? Texts{} : Texts{refused ? kRefused : kInUse});
            EXPECT_EQ(place.messages.icon, c.icon);
            EXPECT_EQ(place.wrong(), Texts());
            EXPECT_TRUE(place.configuration.state.saved);
            EXPECT_EQ(place.configuration.tree.dropHighlight(), done ? nullptr : target);
            EXPECT_EQ(place.pointer.shapes.back(), done ? Pointer::Default : Pointer::Icon);
            if (!done) {
                EXPECT_EQ(place.below(""), before);
                continue;
            }
            EXPECT_EQ(place.has(c.source), control);
            const TreeNode& placed = place.node(c.placed);
            EXPECT_EQ(placed.parent(), target);
            EXPECT_TRUE(placed.expanded());
            const Key last = placed.firstChild() != nullptr ? placed.firstChild()->key() : placed.key();
            EXPECT_EQ(place.configuration.items.at(last)->sKey(), last);
        }
    }
}

TEST(DragAndDrop, ACopySharesItsRecords) {
    PlantedWorkplace place({"U", "U.A/", "U.A.S/", "U.A.S.x", "V"});
    place.drag("U.A", "V", true);
    EXPECT_EQ(place.below("V"), (Texts{"V.A", "V.A.S", "V.A.S.x"}));
    EXPECT_EQ(place.configuration.items.at("U.A.S.x"), place.configuration.items.at("V.A.S.x"));
    EXPECT_EQ(place.configuration.branches.at("U.A.S"), place.configuration.branches.at("V.A.S"));
    EXPECT_EQ(place.item("U.A.S.x").sKey(), "V.A.S.x");
    // The source is found by its node's key still, whatever its record says.
    place.drag("U.A.S", "U");
    EXPECT_EQ(place.below("U"), (Texts{"U.A", "U.S", "U.S.x"}));
    place.click("U.S");
    place.run("mnuDelete");
    EXPECT_EQ(place.below(""), (Texts{"ModBus", "U", "U.A", "V", "V.A", "V.A.S", "V.A.S.x"}));
}

TEST(DragAndDrop, AMoveKeepsOrderLookAndASortedParent) {
    PlantedWorkplace place(
        {"U", "U.A/", "U.A.z", "U.A.a", "U.A.m/", "U.A.m.q", "V", "V.Z/", "V.a", "W", "W.x"});
    place.click("V");
    place.drag("U.A", "V");
    EXPECT_EQ(place.below("V"), (Texts{"V.a", "V.A", "V.A.z", "V.A.a", "V.A.m", "V.A.m.q", "V.Z"}));
    EXPECT_EQ(place.node("V.A.m").tag(), NodeTag::Branch);
    EXPECT_EQ(place.node("V.A.m.q").look().selectedImage, Image::Item);
    place.drag("W", "V.Z");  // a unit, without its records
    EXPECT_EQ(place.node("V.Z.W").tag(), NodeTag::Plc);
    EXPECT_FALSE(place.has("W"));
    EXPECT_TRUE(place.configuration.units.contains("W") && place.configuration.items.contains("W.x"));
    EXPECT_EQ(place.messages.take(), Texts());
}

TEST(DragAndDrop, AFailureHalfWayKeepsWhatWasDone) {
    for (const bool control : {false, true}) {
        // The item "A.x" of V takes the key that the branch's item needs.
        PlantedWorkplace place({"U", "U.A/", "U.A.w", "U.A.x", "V"});
        plantItem(place.configuration, place.node("V"), "A.x");
        place.drag("U.A", "V", control);
        EXPECT_EQ(place.messages.take(), Texts{kInUse});
        EXPECT_EQ(place.below("V"), (Texts{"V.A.x", "V.A", "V.A.w"}));
        EXPECT_EQ(place.below("U"), (Texts{"U.A", "U.A.w", "U.A.x"}));
        EXPECT_EQ(place.wrong(), Texts()) << "nodes without their records";
        // A record left without a node refuses its key without a word.
        place.drag("V", "U.A");
        place.configuration.tree.addChild(*place.configuration.tree.root(), "V", "V", {NodeTag::Plc});
        place.drag("U.A", "V");
        EXPECT_EQ(place.below("V"), Texts{"V.A"});
        EXPECT_TRUE(place.has("U.A.w") && place.configuration.branches.contains("U.A"));
        EXPECT_EQ(place.messages.take(), Texts());
    }
}

TEST(DragAndDrop, EndsWithoutADrop) {
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
    place.drag("U.x", "V");  // refused, and the highlight stays
    EXPECT_EQ(place.messages.take(), Texts{kInUse});
    EXPECT_NE(place.configuration.tree.dropHighlight(), nullptr);
    start();
    place.editor.TreeView1_OLEDragDrop();  // over nothing
    EXPECT_EQ(place.messages.take(), Texts());
    EXPECT_EQ(place.pointer.shapes.back(), Pointer::Default);
    // The dragged node has gone meanwhile.
    start();
    place.editor.TreeView1_OLEDragOver(&place.node("V"));
    place.configuration.items.remove("U.x");
    place.configuration.tree.remove(place.node("U.x"));
    EXPECT_FALSE(place.editor.dropAllowed(&place.node("V")));
    place.editor.TreeView1_OLEDragDrop();
    EXPECT_EQ(place.below(""), (Texts{"ModBus", "U", "V", "V.x"}));
}

}  // namespace trevandix::testing
