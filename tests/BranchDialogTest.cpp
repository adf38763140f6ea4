#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

class BranchDialog : public ::testing::Test {
protected:
    void SetUp() override {
        startPlant(place);
        addUnit(place, "U", "1");
        place.click("U");
        place.configuration.state.saved = true;
    }
    void add(FakeForms::Script script) { runDialog(place, "mnuAddBranch", std::move(script)); }
    Workplace place;
};

TEST_F(BranchDialog, ProposesNumberedNamesAndSelectsTheNewBranch) {
    const std::size_t rows = place.list.rows().size();
    add(confirmed({}));
    EXPECT_EQ(place.selectedKey(), "U.NewBranch0");
    EXPECT_EQ(place.list.rows().size(), rows);  // the list stays as it is
    EXPECT_FALSE(place.configuration.state.saved);
    place.click("U");
    add(confirmed({}));
    EXPECT_EQ(place.below("U"), (Texts{"U.NewBranch0", "U.NewBranch1"}));
    EXPECT_EQ(place.messages.take(), Texts{});
    place.click("U");
    place.configuration.state.branchCounter = 32767;
    add(confirmed({}));
    EXPECT_EQ(place.messages.take(), failure(kOverflow, "mnuAddBranch_Click"));
    EXPECT_EQ(place.selectedKey(), "U.NewBranch32767");
}

TEST_F(BranchDialog, AnyNameGoesButThatOfASiblingBranch) {
    for (const char* name : {"", "a.b", "a b"}) addBranch(place, "U", name);
    EXPECT_EQ(place.node("U.").text(), "");
    place.click("U");
    add([&](FakeForm& form) {
        expectRefusal(place, form, {{"txtBranchName", "a b"}}, kNameTaken);
        form.press("cmdCancel");
    });
    // A sibling item has the key: the check lets the name pass, the tree does not.
    addItem(place, "U", "Run");
    addBranch(place, "U", "Run");
    EXPECT_EQ(place.messages.take(), failure(kKeyNotUnique, "mnuAddBranch_Click"));
    // Under U.a, "b" has the key of "a.b" under U.
    addBranch(place, "U", "a");
    addBranch(place, "U.a", "b");
    EXPECT_EQ(place.messages.take(), failure(kKeyInCollection, "cmdOk_Click"));
}

TEST_F(BranchDialog, CancelChangesNothing) {
    addBranch(place, "U", "Area");
    place.configuration.state.saved = true;
    place.click("U");
    const auto cancel = [](FakeForm& form) {
        form.type("txtBranchName", "typed");
        form.press("cmdCancel");
    };
    add(cancel);
    editDialog(place, "U.Area", cancel);
    EXPECT_EQ(place.below("U"), Texts{"U.Area"});
    EXPECT_TRUE(place.configuration.state.saved);
    EXPECT_EQ(place.configuration.state.branchCounter, 1);
}

TEST_F(BranchDialog, RenamesABranchWithAllBelowIt) {
    for (const char* name : {"Area", "Other"}) addBranch(place, "U", name);
    addItem(place, "U.Area", "Level");
    place.configuration.state.saved = true;
    editDialog(place, "U.Area", [&](FakeForm& form) {
        EXPECT_EQ(form.text("txtBranchName"), "Area");
        expectRefusal(place, form, {{"txtBranchName", "Other"}}, kNameTaken);
        confirmed({{"txtBranchName", "Zone"}})(form);
    });
    EXPECT_EQ(place.below("U"), (Texts{"U.Other", "U.Zone", "U.Zone.Level"}));
    EXPECT_EQ(place.selectedKey(), "U.Zone");
    EXPECT_EQ(place.configuration.branches.at("U.Zone")->sName(), "Zone");
    EXPECT_EQ(place.list.rows().at(0).key, "U.Zone.Level");
    EXPECT_FALSE(place.configuration.state.saved);
}

}  // namespace

}  // namespace trevandix::testing
