#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

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
    std::string codes(std::string_view name) {
        const clsModBusType& type = *place.configuration.dataTypes.at(name);
        return std::to_string(type.getReadCode()) + "/" + std::to_string(type.getWriteCode()) + "/" +
               std::to_string(type.getSingleWrCode());
    }
    Workplace place;
};

TEST_F(DataTypeDialog, AChosenTablePresetsTheCodes) {
    add([](FakeForm& form) {
        for (const auto& [name, fields] : Fields{{"input status", "2//---o"},
                                                 {"coil", "1/15/5+++x"},
                                                 {"input register", "4//---o"},
                                                 {"holding register", "3/16/6+++x"}}) {
            form.choose("cmbMBType", name);
            EXPECT_EQ(shown(form), fields);
        }
        EXPECT_EQ(form.items("cmbMBType").size(), 4U);
        form.toggle("chkSingle");
        EXPECT_EQ(shown(form), "3/16/++-o");
        form.toggle("chkSingle");
        EXPECT_EQ(shown(form), "3/16/+++x");
        form.press("cmdCancel");
    });
    EXPECT_TRUE(place.configuration.dataTypes.empty());
}

// Also from a branch that lists items.
TEST_F(DataTypeDialog, AddsTheTypeBelowTheFolder) {
    place.configuration.state.saved = true;
    add([](FakeForm& form) {
        form.fill({{"cmbMBType", "holding register"}, {"txtReadCode", "3.5"}, {"txtWriteCode", "2.5"}});
        form.toggle("chkSingle");
        form.press("cmdOk");
    });
    EXPECT_EQ(codes("holding register"), "4/2/0");
    EXPECT_EQ(place.selectedKey(), kModBusFolder);
    EXPECT_EQ(place.list.rows().at(0).subItems.at(0), "4");
    EXPECT_EQ(place.configuration.state.dataTypeCounter, 1);
    EXPECT_FALSE(place.configuration.state.saved);
    addUnit(place, "U", "1");
    addBranch(place, "U", "B");
    addItem(place, "U.B", "I");
    place.click("U.B");
    add([](FakeForm& form) {
        form.choose("cmbMBType", "input status");
        form.setText("txtWriteCode", "9");
        form.press("cmdOk");
    });
    EXPECT_EQ(codes("input status"), "2/0/0");
    EXPECT_EQ(place.below(kModBusFolder), (Texts{"holding register", "input status"}));
    EXPECT_EQ(place.messages.take(), Texts{});
}

TEST_F(DataTypeDialog, FieldsAreCheckedInTheirOrderAndKeptWhenRefused) {
    addDataType(place, "coil");
    const std::string read = "Check Read Function code";
    const std::vector<std::pair<Fields, std::string>> steps{
        {{}, read},
        {{{"txtReadCode", "1"}, {"txtWriteCode", "1"}},  // codes without a name: no node could stand for it
         failure(kInvalidCall, "cmdOk_Click")[0]},
        {{{"cmbMBType", "coil"}, {"txtReadCode", "x"}}, "ModBus type already existing"},
        {{{"cmbMBType", "holding register"},
          {"txtReadCode", "x"},
          {"txtWriteCode", "x"},
          {"txtSingleCode", ""}},
         read},
        {{{"txtReadCode", "+3e0"}}, "Check Write Function code"},
        {{{"txtWriteCode", "16"}}, "Check Single Write Function code"},
        {{{"txtSingleCode", "300"}}, failure(kOverflow, "cmdOk_Click")[0]},
    };
    place.click(kModBusFolder);
    add([&](FakeForm& form) {
        for (const auto& [fields, message] : steps) expectRefusal(place, form, fields, {message});
        EXPECT_EQ(form.text("txtReadCode"), "+3e0");
        confirmed({{"txtSingleCode", "6"}})(form);
        EXPECT_FALSE(form.open);
    });
    EXPECT_EQ(codes("holding register"), "3/16/6");
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
        EXPECT_EQ(shown(form), "3/16/++-o");
        form.toggle("chkSingle");
        confirmed({{"txtSingleCode", "6"}})(form);
    });
    EXPECT_EQ(codes("holding register"), "3/16/6");
    EXPECT_TRUE(place.configuration.state.saved);
    EXPECT_EQ(place.list.rows().size(), 2U);
}

TEST_F(DataTypeDialog, ATypeEditedOntoAnotherNameKeepsItsNode) {
    for (const char* name : {"coil", "input register"}) addDataType(place, name);
    editDialog(place, "coil", confirmed({{"cmbMBType", "holding register"}}));
    EXPECT_EQ(place.node("coil").text(), "coil");
    EXPECT_FALSE(place.configuration.dataTypes.contains("coil"));
    EXPECT_EQ(codes("holding register"), "3/16/6");
    EXPECT_EQ(place.messages.take(), Texts{});
    editDialog(place, "input register", [&](FakeForm& form) {
        expectRefusal(place, form, {{"cmbMBType", "holding register"}},
                      failure(kKeyInCollection, "cmdOk_Click"));
    });
    EXPECT_FALSE(place.configuration.dataTypes.contains("input register"));  // not restored
    editDialog(place, "coil", [](FakeForm& form) { EXPECT_EQ(form.text("txtReadCode"), ""); });
    EXPECT_EQ(place.messages.take(), failure(kInvalidCall, "Form_Load"));
}

}  // namespace

}  // namespace trevandix::testing
