#include <gtest/gtest.h>

#include "Plant.h"
#include "dialogs/ItemAdvance.h"

namespace trevandix::testing {

namespace {

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
    place.configuration.state.itemCounter = 3;
    add([&](FakeForm& form) {
        const Fields fields{{"txtItemName", "New Item 3"},
                            {"cmbModbusType", ""},
                            {"txtComment", ""},
                            {"txtAddress", ""},
                            {"cmbBit", "0"},
                            {"txtElements", "0"}};
        EXPECT_EQ(form.shown(fields), fields);
        for (const char* off : {"cmbBit", "lblBit", "txtElements", "lblElements"})
            EXPECT_FALSE(form.enabled(off));
        for (const Case& c : cases) {
            SCOPED_TRACE(c.table + ":" + c.label);
            form.choose("cmbModbusType", c.table);
            EXPECT_EQ(form.text("cmbDataType") + form.text("cmbAccessRight"), "");
            EXPECT_EQ(form.items("cmbDataType").size(), c.types);
            EXPECT_EQ(form.items("cmbAccessRight").size(), c.rights);
            form.choose("cmbDataType", c.label);
            EXPECT_EQ(form.enabled("cmbBit"), c.bit);
            EXPECT_EQ(form.enabled("txtElements"), c.elements);
            if (c.elements) form.type("txtElements", "9");
            EXPECT_EQ(form.text("txtElements"), c.elements ? "9" : "0");
        }
    });
    EXPECT_TRUE(place.configuration.state.saved);
}

TEST_F(ItemDialog, FieldsAreCheckedInTheirOrder) {
    const std::string range = "Memory address field is not valid. It must be between 0 and 65535.";
    // What is entered, and what is then said.
    const std::vector<std::pair<Fields, std::string>> steps{
        {{{"txtItemName", ""}}, "Item name field is empty."},
        {{{"txtItemName", "a b.c"}}, "ModBus Type field is empty."},
        {{{"cmbModbusType", "holding register"}}, "Data Type field is empty."},
        {{{"cmbDataType", "boolean array"}}, "Memory address field is empty."},
        {{{"txtAddress", "65536"}}, range},
        {{{"txtAddress", "-1"}}, range},
        {{{"txtAddress", "65535.2"}}, range},
        {{{"txtAddress", "65535"}}, "Bit number field is empty."},
        {{{"cmbBit", "7"}, {"txtElements", ""}}, "Number of elements field is empty."},
        {{{"txtElements", "-1"}}, "Number of elements field is not valid."},
        {{{"txtElements", "0"}}, "Access Rights field is empty."},
        {{{"cmbAccessRight", "WRITE"}, {"txtElements", "40000"}}, failure(kOverflow, "cmdOk_Click")[0]},
    };
    add([&](FakeForm& form) {
        form.setText("cmbBit", "");
        for (const auto& [fields, message] : steps) expectRefusal(place, form, fields, {message});
        confirmed({{"txtElements", "0"}})(form);
        EXPECT_FALSE(form.open);
    });
    const clsItem& item = place.item("U.B.abc");  // what is no word character did not get in
    EXPECT_EQ(item.nAddress(), 65535);
    EXPECT_EQ(item.nBitNumber(), 7);
    EXPECT_EQ(item.nElements(), 0);
    EXPECT_EQ(item.sDataType() + item.sAccessRight(), "holding register:boolean arrayWRITE");
    EXPECT_EQ(place.list.rows().size(), 1U);  // the list shows it once the dialog is closed
    EXPECT_EQ(place.configuration.state.itemCounter, 1);
    EXPECT_FALSE(place.configuration.state.saved);
}

TEST(ItemAdvance, EveryValueTypeMovesByItsSize) {
    struct Case {
        std::string table;
        Texts labels;
        ItemPlace from;
        int elements;
        ItemPlace to;
    };
    const std::string hr = "holding register";
    const std::vector<Case> cases{
        {hr, {"boolean"}, {10, 3}, 0, {10, 4}},
        {hr, {"boolean"}, {10, 15}, 0, {11, 0}},
        {"my register", {"boolean"}, {10, 15}, 0, {11, 0}},
        {"coil", {"boolean"}, {10, 0}, 0, {11, 0}},
        {hr, {"unsigned 16 bit", "signed 16 bit"}, {10, 0}, 0, {11, 0}},
        {hr, {"unsigned 32 bit", "signed 32 bit", "32 bit float"}, {10, 0}, 0, {12, 0}},
        {hr, {"boolean array"}, {100, 10}, 20, {101, 14}},
        {hr, {"boolean array"}, {100, 0}, 32, {102, 0}},
        {"input status", {"boolean array"}, {100, 0}, 20, {120, 0}},
        {hr, {"unsigned 8 bit array", "signed 8 bit array", "string"}, {10, 0}, 2, {12, 0}},
        {hr, {"signed 8 bit array", "string"}, {10, 0}, 5, {13, 0}},
        {hr, {"string"}, {10, 0}, 3, {13, 0}},
        {hr, {"unsigned 16 bit array", "signed 16 bit array"}, {10, 0}, 7, {17, 0}},
        {hr, {"unsigned 32 bit array", "signed 32 bit array", "32 bit float array"}, {10, 0}, 7, {24, 0}},
        {hr, {"anything else"}, {10, 2}, 7, {10, 2}},
    };
    for (const Case& c : cases) {
        for (const std::string& label : c.labels) {
            const ItemPlace next = advanced(c.from, c.table, label, c.elements);
            EXPECT_EQ(next, c.to) << c.table << ':' << label << ' ' << next.address << '/' << next.bit;
        }
    }
}

TEST_F(ItemDialog, AddAndIncrementProposesTheNextItem) {
    add([&](FakeForm& form) {
        fillItem(form, "First", "holding register", "boolean array", "100");
        form.fill({{"txtComment", "pump"}, {"cmbBit", "10"}, {"txtElements", "20"}});
        form.press("cmdAdd");
        EXPECT_TRUE(form.open);
        const Fields next{{"txtItemName", "New_Item_1"}, {"txtComment", ""},
                          {"txtAddress", "101"},         {"cmbBit", "14"},
                          {"txtElements", "20"},         {"cmbAccessRight", "READ"}};
        EXPECT_EQ(form.shown(next), next);
        form.type("txtAddress", "");
        form.press("cmdAdd");  // refused: nothing moves on
        EXPECT_EQ(form.text("txtItemName"), "New_Item_1");
        form.press("cmdCancel");
    });
    EXPECT_EQ(place.messages.take(), Texts{"Memory address field is empty."});
    EXPECT_EQ(place.below("U.B"), Texts{"U.B.First"});
    EXPECT_EQ(place.item("U.B.First").sComment(), "pump");
}

// A name that is taken; and one that passes the check, but whose key does not.
TEST_F(ItemDialog, AGroupStopsAtTheFirstRefusal) {
    addItem(place, "U.B", "New_Item_3");
    addBranch(place, "U", "C");
    addBranch(place, "U.C", "New_Item_4");
    const std::vector<std::pair<std::string, Texts>> cases{{"U.B", kNameTaken},
                                                           {"U.C", failure(kKeyNotUnique, "cmdAdd_Click")}};
    for (const auto& [branch, message] : cases) {
        place.click(branch);
        place.pointer.shapes.clear();
        add([&](FakeForm& form) {
            fillItem(form, "First", "holding register", "32 bit float", "10");
            form.press("cmdGroup");
            EXPECT_FALSE(form.enabled("frmMain"));
            EXPECT_EQ(form.text("txtNumbItems") + form.focused, "1txtNumbItems");
            form.type("txtNumbItems", "5");
            form.press("cmdOkNumber");
            EXPECT_TRUE(form.open && form.enabled("frmMain"));
            EXPECT_FALSE(form.visible("frmInserimento"));
            EXPECT_EQ(form.focused, "txtItemName");
            EXPECT_EQ(place.pointer.shapes, (std::vector{Pointer::Hourglass, Pointer::Default}));
        });
        EXPECT_EQ(place.messages.take(), message);
    }
    EXPECT_EQ(place.below("U"), (Texts{"U.B", "U.B.First", "U.B.New_Item_2", "U.B.New_Item_3", "U.C",
                                       "U.C.First", "U.C.New_Item_4"}));
    EXPECT_EQ(place.item("U.B.New_Item_2").nAddress(), 12);
}

TEST_F(ItemDialog, TheGroupPanelTakesNumbersOnly) {
    const std::string invalid = "Number of items is not valid.";
    add([&](FakeForm& form) {
        fillItem(form, "First");
        form.press("cmdGroup");
        for (const auto& [number, message] : Fields{{"", invalid},
                                                    {"1-2", invalid},
                                                    {".", invalid},
                                                    {"32768", failure(kOverflow, "cmdOkNumber_Click")[0]}}) {
            form.type("txtNumbItems", number);
            form.press("cmdOkNumber");
            EXPECT_EQ(place.messages.take(), Texts{message}) << number;
            EXPECT_TRUE(form.visible("frmInserimento"));  // for another try
        }
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

TEST_F(ItemDialog, AnItemIsEditedInPlace) {
    addItem(place, "U.B", "Other");
    place.click("U.B");
    const Fields fields{{"txtItemName", "Flag"},
                        {"cmbModbusType", "holding register"},
                        {"cmbDataType", "boolean array"},
                        {"txtComment", "old"},
                        {"txtAddress", "40"},
                        {"cmbBit", "3"},
                        {"txtElements", "8"},
                        {"cmbAccessRight", "READ"}};
    add(confirmed(fields));
    place.configuration.state.saved = true;
    edit("U.B.Flag", [&](FakeForm& form) {
        EXPECT_EQ(form.text("cmdOk"), "Confirm Modify");
        EXPECT_FALSE(form.enabled("cmdAdd") || form.enabled("cmdGroup"));
        EXPECT_EQ(form.shown(fields), fields);
        confirmed({{"txtAddress", "41"}})(form);  // keeping the name is no duplicate
        EXPECT_FALSE(form.open);
    });
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.selectedKey(), "U.B");  // its list shows the changed row
    edit("U.B.Flag", [&](FakeForm& form) {
        expectRefusal(place, form, {{"txtItemName", "Other"}}, kNameTaken);
        confirmed({{"txtItemName", "Renamed"}})(form);
    });
    EXPECT_EQ(place.item("U.B.Renamed").nAddress(), 41);
    EXPECT_EQ(place.node("U.B.Renamed").text(), "Renamed");
    EXPECT_EQ(place.list.rows().size(), 2U);
    EXPECT_FALSE(place.configuration.state.saved);
}

TEST_F(ItemDialog, ARecordSharedByADraggedCopyIsEditedUnderTheNodesKey) {
    addItem(place, "U.B", "Run");
    addBranch(place, "U", "C");
    const auto record = place.configuration.items.at("U.B.Run");
    record->sKey("U.C.Run");
    place.configuration.addItem(record, place.node("U.C"));
    edit("U.B.Run", confirmed({{"txtAddress", "77"}}));
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.item("U.B.Run").nAddress(), 77);
    EXPECT_EQ(place.item("U.C.Run").nAddress(), 1);
}

TEST_F(ItemDialog, AnItemWhoseTypeIsGoneShowsWhatItCan) {
    addItem(place, "U.B", "Old");
    place.item("U.B.Old").sDataType("my table:string");
    edit("U.B.Old", [&](FakeForm& form) {
        EXPECT_EQ(form.text("cmbModbusType") + form.text("cmbDataType"), "");
        expectRefusal(place, form, {}, {"ModBus Type field is empty."});
    });
}

TEST_F(ItemDialog, CommandsNeedTheNodeThatTheyAddTo) {
    for (const char* key : {"", "ModBus", "coil", "U"}) {
        const bool unit = std::string_view(key) == "U";
        place.click(key);
        place.forms.shown.clear();
        for (const char* command :
             {unit ? "mnuAddPlc" : "mnuAddItem", unit ? "mnuAddMBType" : "mnuAddBranch"})
            place.run(command);
        EXPECT_EQ(place.forms.shown, Texts{}) << key;
    }
}

}  // namespace

}  // namespace trevandix::testing
