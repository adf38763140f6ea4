#include "xmlfile/Generale.h"

#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

TEST(NameRules, FirstForbiddenCharacterIsNamed) {
    const std::string forbidden = " .,:;\\/|";
    for (std::size_t i = 0; i < forbidden.size(); ++i) {
        const std::string name = "a" + forbidden.substr(i + 1) + "b" + forbidden.substr(i, 1);
        EXPECT_EQ(forbiddenCharacter(name)->message,
                  "Character (" + forbidden.substr(i, 1) + ") not acceptable in string " + name);
    }
    for (const char* name : {"Level-1_A", "", "h\xC3\xB6he<&>"}) EXPECT_FALSE(forbiddenCharacter(name));
}

TEST(NameRules, KeyFiltersDiscardOtherCharacters) {
    EXPECT_EQ(entered(KeyFilter::Numeric, "x1e-2.5 +,7\tA3"), "1-2.5 7");
    EXPECT_EQ(entered(KeyFilter::ItemName, "N\xC3\xA9w Item.3-a_Z\rb"), "NwItem3-a_Z");
    EXPECT_EQ(entered(KeyFilter::None, "a b\xC3\xA9\nc"), "a b\xC3\xA9");
    EXPECT_TRUE(keeps(KeyFilter::Numeric, 8) && keeps(KeyFilter::ItemName, 8));
}

TEST(NameRules, DuplicatesAreSiblingsOfTheSameKindAndName) {
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
}

// Renaming a unit or branch changes the keys of everything below it, or nothing.
TEST(NameRules, RenamingChangesAllKeysBelowOrNothing) {
    const std::string inCollection = " | said " + failure(kKeyInCollection, "cmdOk_Click")[0];
    const std::string notUnique = " | said " + failure(kKeyNotUnique, "cmdOk_Click")[0];
    const std::string taken = " | said " + kNameTaken[0];
    const std::string whole = "tree top: ModBus P(Q.S) U(A(R T(l)) A.V B.A S Z)";
    for (const auto& [step, seen] :
         Fields{// A new key may be the old key of another node below.
                {"edit U: txtName=U.B", "tree top: ModBus P(Q.S) U.B(A(R T(l)) A.V B.A S Z)"},
                {"edit U: txtName=P.Q", whole + notUnique},
                {"edit U: txtName=ModBus", whole + notUnique},
                {"edit U.A.T: txtBranchName=V", whole + inCollection},
                {"edit U.A.T: txtBranchName=R", whole + notUnique},  // key of an item
                {"edit U: txtName=P", whole + taken},
                {"edit U.A: txtBranchName=A.V", whole + taken},
                {"edit U.S: txtItemName=Z", whole + taken},
                {"edit U.A: txtBranchName=N", "tree U: A.V B.A N(R T(l)) S Z | list U.N: R"},
                {"edit U.S: txtItemName=x", "tree U: A(R T(l)) A.V B.A x Z"}}) {
        PlantedWorkplace place({"U", "U.A/", "U.A.T/", "U.A.T.l", "U.A.R", "U.S", "U.Z", "P"});
        for (const char* name : {"B.A", "A.V"}) plantBranch(place.configuration, place.node("U"), name);
        plantBranch(place.configuration, place.node("P"), "Q.S");
        play(place, {{"P; U; U.A; top", ""}});  // clicking sorts the children, as the edit will
        const Texts before = fileContents(place.configuration);
        play(place, {{step, seen}});
        EXPECT_EQ(fileContents(place.configuration) == before, seen.starts_with(whole));
        EXPECT_EQ(place.wrong(), Texts{});
    }
    // Two nodes would get the same key, because one has a key that does not match its place.
    PlantedWorkplace place({"U", "U.S"});
    clsItem twin;
    twin.sName("S");
    twin.sKey("elsewhere");
    place.configuration.addItem(twin, place.node("U"));
    play(place, {{"edit U: txtName=V", "list U: U" + inCollection}});
    EXPECT_EQ(place.wrong(), Texts{"key of another place: elsewhere"});
}

}  // namespace

}  // namespace trevandix::testing
