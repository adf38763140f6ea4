#include <gtest/gtest.h>

#include "DialogSteps.h"
#include "dialogs/ItemAdvance.h"

namespace trevandix::testing {

namespace {

const Texts kDuplicate{"Name already existing. Please use a different name"};

class ItemDialog : public ::testing::Test {
protected:
    void SetUp() override {
        startPlant(place);
        addUnit(place, "U", "1");
        addBranch(place, "U", "B");
        place.click("U.B");
        place.configuration.state.saved = true;
        ASSERT_EQ(place.messages.take(), Texts{});
    }
    void add(FakeForms::Script script) { runDialog(place, "mnuAddItem", std::move(script)); }
    void edit(std::string_view key, FakeForms::Script script) { editDialog(place, key, std::move(script)); }
    Workplace place;
};

TEST_F(ItemDialog, OpensForANewItemWithNothingChosen) {
    place.configuration.state.itemCounter = 3;
    add([](FakeForm& form) {
        EXPECT_EQ(form.shape.caption, "Item Properties");
        EXPECT_EQ(form.text("cmdOk"), "Add and Exit");
        EXPECT_EQ(form.text("txtItemName"), "New Item 3");
        EXPECT_EQ(form.items("cmbModbusType"),
                  (Texts{"input status", "coil", "input register", "holding register"}));
        EXPECT_EQ(form.items("cmbBit").size(), 16U);
        EXPECT_EQ(form.text("cmbModbusType") + form.text("txtComment") + form.text("txtAddress"), "");
        EXPECT_TRUE(form.items("cmbDataType").empty());
        EXPECT_EQ(form.text("cmbBit") + form.text("txtElements"), "00");
        for (const char* off : {"cmbBit", "lblBit", "txtElements", "lblElements"})
            EXPECT_FALSE(form.enabled(off));
        EXPECT_TRUE(form.enabled("cmdAdd") && form.enabled("cmdGroup"));
        EXPECT_FALSE(form.visible("frmInserimento"));
    });
    EXPECT_TRUE(place.configuration.state.saved);
}

TEST_F(ItemDialog, TheTableDecidesTypesAndRightsAndTheTypeDecidesBitAndElements) {
    auto custom = std::make_shared<clsModBusType>();
    custom->setName("my register");
    place.configuration.addDataType(custom);
    struct Case {
        std::string table;
        std::string label;
        std::size_t types;
        std::size_t rights;
        bool bit;
        bool elements;
    };
    const std::vector<Case> cases{
        {"holding register", "boolean", 15, 3, true, false},
        {"holding register", "string", 15, 3, false, true},
        {"input register", "boolean array", 15, 1, true, true},
        {"input register", "32 bit float", 15, 1, false, false},
        {"coil", "boolean", 2, 3, false, false},
        {"input status", "boolean array", 2, 1, false, true},
        {"my register", "boolean", 2, 3, true, false},
    };
    add([&](FakeForm& form) {
        for (const Case& c : cases) {
            form.choose("cmbModbusType", c.table);
            EXPECT_EQ(form.text("cmbDataType") + form.text("cmbAccessRight"), "");
            EXPECT_EQ(form.items("cmbDataType").size(), c.types);
            EXPECT_EQ(form.items("cmbAccessRight").size(), c.rights);
            form.choose("cmbDataType", c.label);
            EXPECT_EQ(form.enabled("cmbBit"), c.bit) << c.table << c.label;
            EXPECT_EQ(form.enabled("lblBit"), c.bit);
            EXPECT_EQ(form.enabled("txtElements"), c.elements) << c.table << c.label;
            if (c.elements) {
                form.type("txtElements", "9");
            } else {
                EXPECT_EQ(form.text("txtElements"), "0");
            }
        }
        EXPECT_EQ(form.items("cmbDataType"), (Texts{"boolean", "boolean array"}));
    });
}

TEST_F(ItemDialog, FieldsAreCheckedInTheirOrder) {
    const std::string range = "Memory address field is not valid. It must be between 0 and 65535.";
    add([&](FakeForm& form) {
        const auto refused = [&](const std::string& message) {
            form.press("cmdOk");
            EXPECT_TRUE(form.open);
            EXPECT_EQ(place.messages.take(), Texts{message});
        };
        form.type("txtItemName", "");
        refused("Item name field is empty.");
        form.type("txtItemName", "a b.c");  // what is no word character does not get in
        EXPECT_EQ(form.text("txtItemName"), "abc");
        refused("ModBus Type field is empty.");
        form.choose("cmbModbusType", "holding register");
        refused("Data Type field is empty.");
        form.choose("cmbDataType", "boolean array");
        refused("Memory address field is empty.");
        for (const char* wrong : {"65536", "-1", "65535.2"}) {
            form.type("txtAddress", wrong);
            refused(range);
        }
        form.type("txtAddress", "65535");
        form.setText("cmbBit", "");
        refused("Bit number field is empty.");
        form.choose("cmbBit", "7");
        form.type("txtElements", "");
        refused("Number of elements field is empty.");
        form.type("txtElements", "-1");
        refused("Number of elements field is not valid.");
        form.type("txtElements", "0");
        refused("Access Rights field is empty.");
        form.choose("cmbAccessRight", "WRITE");
        form.type("txtElements", "40000");
        refused(" Error n. 6  Overflow in cmdOk_Click");
        form.type("txtElements", "0");
        form.press("cmdOk");
        EXPECT_FALSE(form.open);
    });
    const clsItem& item = place.item("U.B.abc");
    EXPECT_EQ(item.nAddress(), 65535);
    EXPECT_EQ(item.nBitNumber(), 7);
    EXPECT_EQ(item.nElements(), 0);
    EXPECT_EQ(item.sDataType(), "holding register:boolean array");
    EXPECT_EQ(item.sAccessRight(), "WRITE");
    EXPECT_EQ(place.list.rows().size(), 1U);  // the list shows it once the dialog is closed
    EXPECT_EQ(place.configuration.state.itemCounter, 1);
    EXPECT_FALSE(place.configuration.state.saved);
}

TEST(ItemAdvance, EveryValueTypeMovesByItsSize) {
    struct Case {
        std::string table;
        std::string label;
        ItemPlace from;
        int elements;
        ItemPlace to;
    };
    const std::string hr = "holding register";
    const std::vector<Case> cases{
        {hr, "boolean", {10, 3}, 0, {10, 4}},
        {hr, "boolean", {10, 15}, 0, {11, 0}},
        {"my register", "boolean", {10, 15}, 0, {11, 0}},
        {"coil", "boolean", {10, 0}, 0, {11, 0}},
        {hr, "unsigned 16 bit", {10, 0}, 0, {11, 0}},
        {hr, "signed 16 bit", {10, 0}, 0, {11, 0}},
        {hr, "unsigned 32 bit", {10, 0}, 0, {12, 0}},
        {hr, "signed 32 bit", {10, 0}, 0, {12, 0}},
        {hr, "32 bit float", {10, 0}, 0, {12, 0}},
        {hr, "boolean array", {100, 10}, 20, {101, 14}},
        {hr, "boolean array", {100, 0}, 32, {102, 0}},
        {hr, "boolean array", {100, 5}, 0, {100, 5}},
        {"input status", "boolean array", {100, 0}, 20, {120, 0}},
        {hr, "unsigned 8 bit array", {10, 0}, 2, {12, 0}},
        {hr, "signed 8 bit array", {10, 0}, 4, {13, 0}},
        {hr, "string", {10, 0}, 5, {13, 0}},
        {hr, "string", {10, 0}, 6, {14, 0}},
        {hr, "string", {10, 0}, 3, {13, 0}},
        {hr, "unsigned 16 bit array", {10, 0}, 7, {17, 0}},
        {hr, "signed 16 bit array", {10, 0}, 7, {17, 0}},
        {hr, "unsigned 32 bit array", {10, 0}, 7, {24, 0}},
        {hr, "signed 32 bit array", {10, 0}, 7, {24, 0}},
        {hr, "32 bit float array", {10, 0}, 7, {24, 0}},
        {hr, "anything else", {10, 2}, 7, {10, 2}},
    };
    for (const Case& c : cases) {
        const ItemPlace next = advanced(c.from, c.table, c.label, c.elements);
        EXPECT_EQ(next, c.to) << c.table << ':' << c.label << ' ' << next.address << '/' << next.bit;
    }
}

TEST_F(ItemDialog, AddAndIncrementProposesTheNextItem) {
    add([&](FakeForm& form) {
        fillItem(form, "First", "holding register", "boolean array", "100");
        form.type("txtComment", "pump");
        form.choose("cmbBit", "10");
        form.type("txtElements", "20");
        form.press("cmdAdd");
        EXPECT_TRUE(form.open);
        EXPECT_EQ(form.text("txtItemName"), "New_Item_1");
        EXPECT_EQ(form.text("txtComment"), "");
        EXPECT_EQ(form.text("txtAddress") + "/" + form.text("cmbBit"), "101/14");
        EXPECT_EQ(form.text("txtElements"), "20");
        EXPECT_EQ(form.text("cmbAccessRight"), "READ");
        form.type("txtAddress", "");
        form.press("cmdAdd");  // refused: nothing moves on
        EXPECT_EQ(form.text("txtItemName"), "New_Item_1");
        form.press("cmdCancel");
    });
    EXPECT_EQ(place.messages.take(), Texts{"Memory address field is empty."});
    EXPECT_EQ(keysBelow(place, "U.B"), Texts{"U.B.First"});
    EXPECT_EQ(place.item("U.B.First").sComment(), "pump");
}

TEST_F(ItemDialog, AGroupStopsAtTheFirstRefusal) {
    addItem(place, "U.B", "New_Item_3");
    place.click("U.B");
    place.pointer.shapes.clear();
    add([&](FakeForm& form) {
        fillItem(form, "First", "holding register", "32 bit float", "10");
        form.press("cmdGroup");
        EXPECT_FALSE(form.enabled("frmMain"));
        EXPECT_TRUE(form.visible("frmInserimento"));
        EXPECT_EQ(form.text("txtNumbItems"), "1");
        EXPECT_EQ(form.focused, "txtNumbItems");
        form.type("txtNumbItems", "5");
        form.press("cmdOkNumber");
        EXPECT_TRUE(form.enabled("frmMain"));
        EXPECT_FALSE(form.visible("frmInserimento"));
        EXPECT_EQ(form.focused, "txtItemName");
        EXPECT_EQ(form.text("txtItemName"), "New_Item_3");
        EXPECT_EQ(place.pointer.shapes, (std::vector{Pointer::Hourglass, Pointer::Default}));
    });
    EXPECT_EQ(place.messages.take(), kDuplicate);
    EXPECT_EQ(keysBelow(place, "U.B"), (Texts{"U.B.First", "U.B.New_Item_2", "U.B.New_Item_3"}));
    EXPECT_EQ(place.item("U.B.New_Item_2").nAddress(), 12);
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(ItemDialog, TheGroupPanelTakesNumbersOnly) {
    add([&](FakeForm& form) {
        fillItem(form, "First");
        form.press("cmdGroup");
        for (const char* wrong : {"", "1-2", "."}) {
            form.type("txtNumbItems", wrong);
            form.press("cmdOkNumber");
            EXPECT_EQ(place.messages.take(), Texts{"Number of items is not valid."}) << wrong;
        }
        form.type("txtNumbItems", "32768");
        form.press("cmdOkNumber");
        EXPECT_EQ(place.messages.take(), Texts{" Error n. 6  Overflow in cmdOkNumber_Click"});
        EXPECT_TRUE(form.visible("frmInserimento"));  // for another try
        form.type("txtNumbItems", "0.5");
        form.press("cmdOkNumber");
        EXPECT_FALSE(form.visible("frmInserimento"));
        form.press("cmdGroup");
        form.type("txtNumbItems", "2.5");
        form.press("cmdOkNumber");
    });
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.configuration.items.size(), 2U);
}

TEST_F(ItemDialog, AFailureBeyondTheChecksIsReportedAndEndsTheGroup) {
    addBranch(place, "U.B", "New_Item_1");  // an item of this name passes the check, its key does not
    place.click("U.B");
    add([&](FakeForm& form) {
        fillItem(form, "First");
        form.press("cmdGroup");
        form.type("txtNumbItems", "4");
        form.press("cmdOkNumber");
        EXPECT_TRUE(form.open && form.enabled("frmMain"));
    });
    EXPECT_EQ(place.messages.take(),
              Texts{" Error n. 35602  Key is not unique in collection in cmdAdd_Click"});
    EXPECT_EQ(place.configuration.items.size(), 1U);
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(ItemDialog, AnItemIsEditedInPlace) {
    addItem(place, "U.B", "Other");
    place.click("U.B");
    add([](FakeForm& form) {
        fillItem(form, "Flag", "holding register", "boolean array", "40");
        form.type("txtComment", "old");
        form.choose("cmbBit", "3");
        form.type("txtElements", "8");
        form.press("cmdOk");
    });
    place.configuration.state.saved = true;
    edit("U.B.Flag", [&](FakeForm& form) {
        EXPECT_EQ(form.text("cmdOk"), "Confirm Modify");
        EXPECT_FALSE(form.enabled("cmdAdd") || form.enabled("cmdGroup"));
        for (const auto& [control, text] :
             std::vector<std::pair<std::string, std::string>>{{"txtItemName", "Flag"},
                                                              {"cmbModbusType", "holding register"},
                                                              {"cmbDataType", "boolean array"},
                                                              {"txtComment", "old"},
                                                              {"txtAddress", "40"},
                                                              {"cmbBit", "3"},
                                                              {"txtElements", "8"},
                                                              {"cmbAccessRight", "READ"}}) {
            EXPECT_EQ(form.text(control), text) << control;
        }
        form.type("txtAddress", "41");
        form.press("cmdOk");  // keeping the name is no duplicate
        EXPECT_FALSE(form.open);
    });
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.configuration.tree.selected()->key().str(), "U.B");  // its list shows the changed row
    edit("U.B.Flag", [&](FakeForm& form) {
        form.type("txtItemName", "Other");
        form.press("cmdOk");
        EXPECT_TRUE(form.open);
        EXPECT_EQ(place.messages.take(), kDuplicate);
        form.type("txtItemName", "Renamed");
        form.press("cmdOk");
    });
    EXPECT_EQ(place.item("U.B.Renamed").nAddress(), 41);
    EXPECT_EQ(place.node("U.B.Renamed").text(), "Renamed");
    EXPECT_EQ(place.list.rows().size(), 2U);
    EXPECT_FALSE(place.configuration.state.saved);
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(ItemDialog, ARecordSharedByADraggedCopyIsEditedUnderTheNodesKey) {
    addItem(place, "U.B", "Run");
    addBranch(place, "U", "C");
    const auto record = place.configuration.items.at("U.B.Run");
    record->sKey("U.C.Run");
    place.configuration.addItem(record, place.node("U.C"));
    edit("U.B.Run", [](FakeForm& form) {
        form.type("txtAddress", "77");
        form.press("cmdOk");
    });
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.item("U.B.Run").nAddress(), 77);
    EXPECT_EQ(place.item("U.C.Run").nAddress(), 1);
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST_F(ItemDialog, AnItemWhoseTypeIsGoneShowsWhatItCan) {
    addItem(place, "U.B", "Old");
    place.item("U.B.Old").sDataType("my table:string");
    edit("U.B.Old", [&](FakeForm& form) {
        EXPECT_EQ(form.text("cmbModbusType") + form.text("cmbDataType"), "");
        form.press("cmdOk");
        EXPECT_EQ(place.messages.take(), Texts{"ModBus Type field is empty."});
    });
}

TEST_F(ItemDialog, TheCommandNeedsAUnitOrABranch) {
    for (const char* key : {"", "ModBus", "coil"}) {
        place.click(key);
        place.forms.shown.clear();
        place.run("mnuAddItem");
        place.run("mnuAddBranch");
        EXPECT_EQ(place.forms.shown, Texts{}) << key;
    }
    place.click("U");
    place.run("mnuAddPlc");
    place.run("mnuAddMBType");
    EXPECT_EQ(place.forms.shown, Texts{});
}

}  // namespace

}  // namespace trevandix::testing
