#include "xmlfile/Generale.h"

#include <gtest/gtest.h>

#include <random>

#include "DialogSteps.h"

namespace trevandix::testing {

namespace {

TEST(NameRules, TheFirstForbiddenCharacterOfTheListIsNamed) {
    struct Case {
        std::string name;
        std::string character;  // empty: accepted
    };
    const std::vector<Case> cases{
        {"Tank 1", " "}, {"a.b c", " "},    {"a,b.c", "."},   {"a:b,c", ","},
        {"a;b:c", ":"},  {"a\\b;c", ";"},   {"a/b\\c", "\\"}, {"a|b/c", "/"},
        {"a|b", "|"},    {"Level-1_A", ""}, {"", ""},         {"h\xC3\xB6he<&>", ""},
    };
    for (const Case& c : cases) {
        FakeMessages messages;
        EXPECT_EQ(checkForbiddenCharacters(c.name, messages), c.character.empty());
        const Texts expected =
            c.character.empty() ? Texts{}
                                : Texts{"Character (" + c.character + ") not acceptable in string " + c.name};
        EXPECT_EQ(messages.texts, expected);
    }
}

TEST(NameRules, NumericBoxesKeepNumbersAndItemNamesKeepWordCharacters) {
    EXPECT_EQ(filtered(KeyFilter::Numeric, "x1e-2.5 +,7\tA"), "1-2.5 7\t");
    EXPECT_EQ(filtered(KeyFilter::ItemName, "N\xC3\xA9w Item.3-a_Z\t\n"), "NwItem3-a_Z");
    EXPECT_EQ(filtered(KeyFilter::None, "a b\xC3\xA9"), "a b\xC3\xA9");
    EXPECT_TRUE(keeps(KeyFilter::Numeric, 8) && keeps(KeyFilter::ItemName, 8));
}

// Whether the children are sorted or not, the answer is that of a walk through them.
TEST(NameRules, DuplicatesAreSiblingsOfTheSameKindWithExactlyTheName) {
    std::mt19937 random(7);
    const Texts names{"a", "A", "b", "B", "ab", "aB", "", "a.b", "\xC3\xA9", "\xC3\x89"};
    for (int round = 0; round < 300; ++round) {
        StructureTree tree;
        TreeNode& root = tree.addRoot("", {NodeTag::Config});
        TreeNode& unit = tree.addChild(root, "u", "u", {NodeTag::Plc});
        if (round % 2 == 0) tree.keepSorted(unit);
        for (int child = 0; child < 6; ++child) {
            const NodeTag tag = random() % 2 == 0 ? NodeTag::Item : NodeTag::Branch;
            tree.addChild(unit, std::to_string(child), names[random() % names.size()], {tag});
        }
        const bool edit = random() % 2 == 0;
        tree.select(edit ? unit.firstChild() : &unit);
        for (const std::string& name : names) {
            bool clash = false;
            for (const TreeNode* n = unit.firstChild(); n != nullptr; n = n->nextSibling()) {
                clash |= n->tag() == NodeTag::Item && n->text() == name && n != tree.selected();
            }
            FakeMessages messages;
            EXPECT_EQ(CheckDuplNames(NodeTag::Item, name, tree, edit, messages), !clash);
            EXPECT_EQ(messages.texts,
                      clash ? Texts{"Name already existing. Please use a different name"} : Texts{});
        }
    }
}

TEST(NameRules, WithoutASelectedNodeTheCheckReportsItsFailure) {
    StructureTree tree;
    FakeMessages messages;
    EXPECT_FALSE(CheckDuplNames(NodeTag::Item, "a", tree, false, messages));
    EXPECT_EQ(messages.texts, Texts{" Error n. 91  Object variable not set in CheckDuplNames"});
}

class Rekeying : public ::testing::Test {
protected:
    void SetUp() override {
        startPlant(place);
        addUnit(place, "PLC1", "1");
        addBranch(place, "PLC1", "Area");
        addBranch(place, "PLC1.Area", "Tank1");
        addItem(place, "PLC1.Area.Tank1", "Level");
        addItem(place, "PLC1.Area", "Run");
        addItem(place, "PLC1", "Stop");
        ASSERT_EQ(place.messages.take(), Texts{});
    }
    void rename(std::string_view key, const std::string& name) {
        const std::string field = place.node(key).tag() == NodeTag::Plc ? "txtName" : "txtBranchName";
        editDialog(place, key, [&](FakeForm& form) {
            form.type(field, name);
            form.press("cmdOk");
        });
    }
    Workplace place;
};

TEST_F(Rekeying, EverythingBelowARenamedContainerFollowsAtEveryDepth) {
    const auto level = place.configuration.items.at("PLC1.Area.Tank1.Level");
    rename("PLC1", "PLC2");
    rename("PLC2.Area", "Zone");
    EXPECT_EQ(keysBelow(place, "PLC2"),
              (Texts{"PLC2.Stop", "PLC2.Zone", "PLC2.Zone.Run", "PLC2.Zone.Tank1", "PLC2.Zone.Tank1.Level"}));
    EXPECT_EQ(place.configuration.items.at("PLC2.Zone.Tank1.Level"), level);
    EXPECT_EQ(level->sKey().str(), "PLC2.Zone.Tank1.Level");
    EXPECT_EQ(place.configuration.branches.at("PLC2.Zone.Tank1")->sKey().str(), "PLC2.Zone.Tank1");
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(Rekeying, ANewKeyMayBeOneThatAnotherNodeIsJustLeaving) {
    addBranch(place, "PLC1", "B.Area");
    rename("PLC1", "PLC1.B");
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.node("PLC1.B.Area").text(), "Area");
    EXPECT_EQ(place.node("PLC1.B.B.Area").text(), "B.Area");
    EXPECT_EQ(place.configuration.branches.at("PLC1.B.Area")->sName(), "Area");
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(Rekeying, ARefusedNameChangesNothing) {
    addUnit(place, "P", "2");
    addBranch(place, "P", "Q.Stop");  // in the way of PLC1.Stop, were PLC1 called P.Q
    const Texts before = keysBelow(place, "PLC1");
    const auto unit = place.configuration.units.at("PLC1");
    rename("PLC1", "P.Q");
    EXPECT_EQ(place.messages.take(),
              Texts{" Error n. 35602  Key is not unique in collection in cmdOk_Click"});
    rename("PLC1", "ModBus");
    EXPECT_EQ(place.messages.take(),
              Texts{" Error n. 35602  Key is not unique in collection in cmdOk_Click"});
    addBranch(place, "PLC1", "Area.Tank2");
    rename("PLC1.Area.Tank1", "Tank2");
    EXPECT_EQ(place.messages.take(), Texts{" Error n. 457  This key is already associated with an element of "
                                           "this collection in cmdOk_Click"});
    rename("PLC1.Area.Tank1", "Run");  // an item has the key
    EXPECT_EQ(place.messages.take(),
              Texts{" Error n. 35602  Key is not unique in collection in cmdOk_Click"});
    EXPECT_EQ(place.configuration.units.at("PLC1"), unit);
    EXPECT_EQ(place.node("PLC1.Area.Tank1").text(), "Tank1");
    EXPECT_EQ(place.configuration.items.at("PLC1.Stop")->sKey().str(), "PLC1.Stop");
    for (const std::string& key : before) EXPECT_NE(place.configuration.tree.find(key), nullptr) << key;
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(Rekeying, TwoNodesThatWouldGetOneKeyAreRefused) {
    auto twin = std::make_shared<clsItem>();
    twin->sName("Stop");
    twin->sKey("elsewhere");  // a key that does not follow from its place
    place.configuration.addItem(twin, place.node("PLC1"));
    rename("PLC1", "PLC2");
    EXPECT_EQ(place.messages.take(), Texts{" Error n. 457  This key is already associated with an element of "
                                           "this collection in cmdOk_Click"});
    EXPECT_EQ(place.node("PLC1").text(), "PLC1");
    EXPECT_EQ(disagreements(place.configuration), Texts{"key of another place: elsewhere"});
}

}  // namespace

}  // namespace trevandix::testing
