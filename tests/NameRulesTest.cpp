#include "xmlfile/Generale.h"

#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

TEST(NameRules, TheFirstForbiddenCharacterOfTheListIsNamed) {
    const std::string forbidden = " .,:;\\/|";
    for (std::size_t i = 0; i < forbidden.size(); ++i) {
        const std::string name = "a" + forbidden.substr(i + 1) + "b" + forbidden.substr(i, 1);
        EXPECT_EQ(forbiddenCharacter(name)->message,
                  "Character (" + forbidden.substr(i, 1) + ") not acceptable in string " + name);
    }
    for (const char* name : {"Level-1_A", "", "h\xC3\xB6he<&>"}) EXPECT_FALSE(forbiddenCharacter(name));
}

TEST(NameRules, NumericBoxesKeepNumbersAndItemNamesKeepWordCharacters) {
    EXPECT_EQ(entered(KeyFilter::Numeric, "x1e-2.5 +,7\tA3"), "1-2.5 7");
    EXPECT_EQ(entered(KeyFilter::ItemName, "N\xC3\xA9w Item.3-a_Z\rb"), "NwItem3-a_Z");
    EXPECT_EQ(entered(KeyFilter::None, "a b\xC3\xA9\nc"), "a b\xC3\xA9");
    EXPECT_TRUE(keeps(KeyFilter::Numeric, 8) && keeps(KeyFilter::ItemName, 8));
}

TEST(NameRules, DuplicatesAreSiblingsOfTheSameKindWithExactlyTheName) {
    for (const bool sorted : {false, true}) {
        PlantedWorkplace place({"U", "U.A", "U.a", "U.ab", "U.b/", "U.B", "U.\xC3\xA9", "U.own"});
        StructureTree& tree = place.configuration.tree;
        if (sorted) tree.keepSorted(place.node("U"));
        for (const bool edit : {false, true}) {
            tree.select(&place.node(edit ? "U.own" : "U"));
            for (const std::string& name : split("A|a|B|\xC3\xA9|own"))
                EXPECT_EQ(CheckDuplNames(NodeTag::Item, name, tree, edit, place.messages),
                          edit && name == "own");
            EXPECT_EQ(place.messages.take(), Texts(edit ? 4 : 5, kNameTaken[0]));
            for (const std::string& name : split("b||AB|\xC3\x89"))
                EXPECT_TRUE(CheckDuplNames(NodeTag::Item, name, tree, edit, place.messages));
            EXPECT_EQ(place.messages.take(), Texts{});
        }
    }
    FakeMessages messages;
    EXPECT_FALSE(CheckDuplNames(NodeTag::Item, "a", EditableTree(), false, messages));
    EXPECT_EQ(messages.texts, failure("91  Object variable not set", "CheckDuplNames"));
}

class Rekeying : public ::testing::Test {
protected:
    const std::string inCollection_ = "said " + failure(kKeyInCollection, "cmdOk_Click")[0];
    const std::string notUnique_ = "said " + failure(kKeyNotUnique, "cmdOk_Click")[0];
    PlantedWorkplace place{
        {"PLC1", "PLC1.Area/", "PLC1.Area.Tank1/", "PLC1.Area.Tank1.Level", "PLC1.Area.Run", "PLC1.Stop"}};
};

TEST_F(Rekeying, ANewKeyMayBeOneThatAnotherNodeIsJustLeaving) {
    play(place, {{"PLC1; mnuAddBranch: txtBranchName=B.Area", ""}, {"edit PLC1: txtName=PLC1.B", ""}});
    EXPECT_EQ(place.node("PLC1.B.Area").text(), "Area");
    EXPECT_EQ(place.node("PLC1.B.B.Area").text(), "B.Area");
    EXPECT_EQ(place.configuration.branches.at("PLC1.B.Area")->sName(), "Area");
}

TEST_F(Rekeying, ARefusedNameChangesNothing) {
    addUnit(place, "P", "2");
    // In the way of PLC1.Stop, were PLC1 called P.Q; a click sorts, as a later edit will.
    play(place,
         {{"P; mnuAddBranch: txtBranchName=Q.Stop; PLC1; mnuAddBranch: txtBranchName=Area.Tank2; PLC1.Area",
           ""}});
    const Texts before = fileContents(place.configuration);
    const Texts keys = place.below("");
    const auto unit = place.configuration.units.at("PLC1");
    play(place, {{"edit PLC1: txtName=P.Q", notUnique_},
                 {"edit PLC1: txtName=ModBus", notUnique_},
                 {"edit PLC1.Area.Tank1: txtBranchName=Tank2", inCollection_},
                 {"edit PLC1.Area.Tank1: txtBranchName=Run", notUnique_}});  // an item's key
    EXPECT_EQ(place.configuration.units.at("PLC1"), unit);
    EXPECT_EQ(place.item("PLC1.Stop").sKey().str(), "PLC1.Stop");
    EXPECT_EQ(fileContents(place.configuration), before);
    EXPECT_EQ(place.below(""), keys);
}

TEST_F(Rekeying, TwoNodesThatWouldGetOneKeyAreRefused) {
    clsItem twin;
    twin.sName("Stop");
    twin.sKey("elsewhere");  // a key that does not follow from its place
    place.configuration.addItem(twin, place.node("PLC1"));
    play(place, {{"edit PLC1: txtName=PLC2", inCollection_ + " | list PLC1: PLC1"}});
    EXPECT_EQ(place.wrong(), Texts{"key of another place: elsewhere"});
}

}  // namespace

}  // namespace trevandix::testing
