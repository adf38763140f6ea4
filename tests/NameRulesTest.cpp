#include "xmlfile/Generale.h"

#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

TEST(NameRules, TheFirstForbiddenCharacterOfTheListIsNamed) {
    FakeMessages messages;
    const std::string forbidden = " .,:;\\/|";
    for (std::size_t i = 0; i < forbidden.size(); ++i) {
        const std::string name = "a" + forbidden.substr(i + 1) + "b" + forbidden.substr(i, 1);
        EXPECT_FALSE(checkForbiddenCharacters(name, messages));
        EXPECT_EQ(messages.take(),
                  Texts{"Character (" + forbidden.substr(i, 1) + ") not acceptable in string " + name});
    }
    for (const char* name : {"Level-1_A", "", "h\xC3\xB6he<&>"})
        EXPECT_TRUE(checkForbiddenCharacters(name, messages));
    EXPECT_EQ(messages.take(), Texts{});
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
    EXPECT_FALSE(CheckDuplNames(NodeTag::Item, "a", StructureTree(), false, messages));
    EXPECT_EQ(messages.texts, failure("91  Object variable not set", "CheckDuplNames"));
}

class Rekeying : public ::testing::Test {
protected:
    Texts rename(std::string_view key, const std::string& name) {
        const std::string field = place.node(key).tag() == NodeTag::Plc ? "txtName" : "txtBranchName";
        editDialog(place, key, confirmed(field + "=" + name));
        return place.messages.take();
    }
    PlantedWorkplace place{
        {"PLC1", "PLC1.Area/", "PLC1.Area.Tank1/", "PLC1.Area.Tank1.Level", "PLC1.Area.Run", "PLC1.Stop"}};
};

TEST_F(Rekeying, ANewKeyMayBeOneThatAnotherNodeIsJustLeaving) {
    addBranch(place, "PLC1", "B.Area");
    EXPECT_EQ(rename("PLC1", "PLC1.B"), Texts{});
    EXPECT_EQ(place.node("PLC1.B.Area").text(), "Area");
    EXPECT_EQ(place.node("PLC1.B.B.Area").text(), "B.Area");
    EXPECT_EQ(place.configuration.branches.at("PLC1.B.Area")->sName(), "Area");
}

TEST_F(Rekeying, ARefusedNameChangesNothing) {
    addUnit(place, "P", "2");
    addBranch(place, "P", "Q.Stop");  // in the way of PLC1.Stop, were PLC1 called P.Q
    addBranch(place, "PLC1", "Area.Tank2");
    place.click("PLC1.Area");  // sorts, as a later edit will
    const Texts before = fileContents(place.configuration);
    const Texts keys = place.below("");
    const auto unit = place.configuration.units.at("PLC1");
    EXPECT_EQ(rename("PLC1", "P.Q"), failure(kKeyNotUnique, "cmdOk_Click"));
    EXPECT_EQ(rename("PLC1", "ModBus"), failure(kKeyNotUnique, "cmdOk_Click"));
    EXPECT_EQ(rename("PLC1.Area.Tank1", "Tank2"), failure(kKeyInCollection, "cmdOk_Click"));
    EXPECT_EQ(rename("PLC1.Area.Tank1", "Run"), failure(kKeyNotUnique, "cmdOk_Click"));  // an item's key
    EXPECT_EQ(place.configuration.units.at("PLC1"), unit);
    EXPECT_EQ(place.configuration.items.at("PLC1.Stop")->sKey().str(), "PLC1.Stop");
    EXPECT_EQ(fileContents(place.configuration), before);
    EXPECT_EQ(place.below(""), keys);
}

TEST_F(Rekeying, TwoNodesThatWouldGetOneKeyAreRefused) {
    auto twin = std::make_shared<clsItem>();
    twin->sName("Stop");
    twin->sKey("elsewhere");  // a key that does not follow from its place
    place.configuration.addItem(twin, place.node("PLC1"));
    EXPECT_EQ(rename("PLC1", "PLC2"), failure(kKeyInCollection, "cmdOk_Click"));
    EXPECT_EQ(place.node("PLC1").text(), "PLC1");
    EXPECT_EQ(place.wrong(), Texts{"key of another place: elsewhere"});
}

}  // namespace

}  // namespace trevandix::testing
