#include <gtest/gtest.h>

#include "DialogSteps.h"

namespace trevandix::testing {

namespace {

std::string codes(const clsModBusType& type) {
    return std::to_string(type.getReadCode()) + "/" + std::to_string(type.getWriteCode()) + "/" +
           std::to_string(type.getSingleWrCode());
}

std::string shown(FakeForm& form) {
    std::string text =
        form.text("txtReadCode") + "/" + form.text("txtWriteCode") + "/" + form.text("txtSingleCode");
    for (const char* control : {"txtWriteCode", "chkSingle", "txtSingleCode"})
        text += form.enabled(control) ? "+" : "-";
    return text + (form.checked("chkSingle") ? "x" : "o");
}

class DataTypeDialog : public ::testing::Test {
protected:
    void SetUp() override {
        place.newConfiguration(kTcpIp);
        place.click(kModBusFolder);
    }
    void add(FakeForms::Script script) { runDialog(place, "mnuAddMBType", std::move(script)); }
    const clsModBusType& type(std::string_view name) { return *place.configuration.dataTypes.at(name); }
    Workplace place;
};

TEST_F(DataTypeDialog, AChosenTablePresetsTheCodes) {
    add([](FakeForm& form) {
        EXPECT_EQ(form.shape.caption, "ModBus Data Type Properties");
        const std::vector<std::pair<std::string, std::string>> presets{{"input status", "2//---o"},
                                                                       {"coil", "1/15/5+++x"},
                                                                       {"input register", "4//---o"},
                                                                       {"holding register", "3/16/6+++x"}};
        Texts names;
        for (const auto& [name, fields] : presets) {
            form.choose("cmbMBType", name);
            EXPECT_EQ(shown(form), fields);
            EXPECT_TRUE(form.enabled("txtReadCode"));
            names.push_back(name);
        }
        EXPECT_EQ(form.items("cmbMBType"), names);
        form.toggle("chkSingle");
        EXPECT_EQ(shown(form), "3/16/++-o");
        form.toggle("chkSingle");
        EXPECT_EQ(shown(form), "3/16/+++x");
        form.press("cmdCancel");
    });
    EXPECT_TRUE(place.configuration.dataTypes.empty());
}

TEST_F(DataTypeDialog, AddsTheTypeBelowTheFolder) {
    place.configuration.state.saved = true;
    add([](FakeForm& form) {
        form.choose("cmbMBType", "holding register");
        form.type("txtReadCode", "3.5");
        form.type("txtWriteCode", "2.5");
        form.toggle("chkSingle");
        form.press("cmdOk");
    });
    EXPECT_EQ(codes(type("holding register")), "4/2/0");
    const TreeNode& node = place.node("holding register");
    EXPECT_EQ(node.parent()->key().str(), kModBusFolder);
    EXPECT_EQ(node.look().image, Image::Item);
    EXPECT_EQ(place.configuration.tree.selected()->key().str(), kModBusFolder);
    EXPECT_EQ(place.list.rows().at(0).subItems.at(0), "4");
    EXPECT_EQ(place.configuration.state.dataTypeCounter, 1);
    EXPECT_FALSE(place.configuration.state.saved);
    add([](FakeForm& form) {
        form.choose("cmbMBType", "input status");
        form.setText("txtWriteCode", "9");
        form.press("cmdOk");
    });
    EXPECT_EQ(codes(type("input status")), "2/0/0");
    EXPECT_EQ(place.messages.take(), Texts{});
}

TEST_F(DataTypeDialog, AlsoFromABranchThatListsItemsTheTypeGoesToTheFolder) {
    addUnit(place, "U", "1");
    addBranch(place, "U", "B");
    addDataType(place, "holding register");
    addItem(place, "U.B", "I");
    place.click("U.B");
    EXPECT_TRUE(place.window.menus["mnuAddMBType"]);
    add([](FakeForm& form) {
        form.choose("cmbMBType", "coil");
        form.press("cmdOk");
    });
    EXPECT_EQ(place.node("coil").parent()->key().str(), kModBusFolder);
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(DataTypeDialog, FieldsAreCheckedInTheirOrderAndKeptWhenRefused) {
    addDataType(place, "coil");
    place.click(kModBusFolder);
    add([&](FakeForm& form) {
        const auto refused = [&](const std::string& message) {
            form.press("cmdOk");
            EXPECT_TRUE(form.open);
            EXPECT_EQ(place.messages.take(), Texts{message});
        };
        refused("Check Read Function code");
        form.choose("cmbMBType", "coil");
        form.type("txtReadCode", "x");
        refused("ModBus type already existing");
        form.choose("cmbMBType", "holding register");
        form.type("txtReadCode", "x");
        form.type("txtWriteCode", "x");
        form.type("txtSingleCode", "");
        refused("Check Read Function code");
        form.type("txtReadCode", "+3e0");
        refused("Check Write Function code");
        form.type("txtWriteCode", "16");
        refused("Check Single Write Function code");
        form.type("txtSingleCode", "300");
        refused(" Error n. 6  Overflow in cmdOk_Click");
        EXPECT_EQ(form.text("txtReadCode"), "+3e0");
        form.type("txtSingleCode", "6");
        form.press("cmdOk");
        EXPECT_FALSE(form.open);
    });
    EXPECT_EQ(codes(type("holding register")), "3/16/6");
    add([&](FakeForm& form) {  // codes without a name: no node could stand for it
        form.type("txtReadCode", "1");
        form.type("txtWriteCode", "1");
        form.press("cmdOk");
        EXPECT_TRUE(form.open);
    });
    EXPECT_EQ(place.messages.take(), Texts{" Error n. 5  Invalid procedure call or argument in cmdOk_Click"});
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(DataTypeDialog, EditsAType) {
    for (const char* name : {"input register", "holding register"}) addDataType(place, name);
    place.configuration.dataTypes.at("holding register")->setSingleWrCode(0);
    place.configuration.state.saved = true;
    editDialog(place, "input register", [](FakeForm& form) {
        EXPECT_EQ(form.text("cmbMBType"), "input register");
        EXPECT_EQ(shown(form), "4//---o");
    });
    editDialog(place, "holding register", [](FakeForm& form) {
        EXPECT_EQ(shown(form).substr(0, 5), "3/16/");
        EXPECT_FALSE(form.checked("chkSingle"));
        form.toggle("chkSingle");
        form.type("txtSingleCode", "6");
        form.press("cmdOk");
    });
    EXPECT_EQ(codes(type("holding register")), "3/16/6");
    EXPECT_TRUE(place.configuration.state.saved);
    EXPECT_EQ(place.list.rows().size(), 2U);
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(DataTypeDialog, ATypeEditedOntoAnotherNameKeepsItsNode) {
    for (const char* name : {"coil", "input register"}) addDataType(place, name);
    editDialog(place, "coil", [](FakeForm& form) {
        form.choose("cmbMBType", "holding register");
        form.press("cmdOk");
    });
    EXPECT_EQ(place.node("coil").text(), "coil");
    EXPECT_FALSE(place.configuration.dataTypes.contains("coil"));
    EXPECT_EQ(codes(type("holding register")), "3/16/6");
    EXPECT_EQ(place.messages.take(), Texts{});
    editDialog(place, "input register", [&](FakeForm& form) {
        form.choose("cmbMBType", "holding register");
        form.press("cmdOk");
        EXPECT_TRUE(form.open);
    });
    EXPECT_EQ(place.messages.take(), Texts{" Error n. 457  This key is already associated with an element of "
                                           "this collection in cmdOk_Click"});
    EXPECT_FALSE(place.configuration.dataTypes.contains("input register"));  // not restored
    editDialog(place, "coil", [](FakeForm& form) { EXPECT_EQ(form.text("txtReadCode"), ""); });
    EXPECT_EQ(place.messages.take(), Texts{" Error n. 5  Invalid procedure call or argument in Form_Load"});
}

}  // namespace

}  // namespace trevandix::testing
