// The four property dialogs: what they propose, check, add and change.
#include <gtest/gtest.h>

#include <tuple>

#include "Plant.h"
#include "dialogs/ItemAdvance.h"

namespace trevandix::testing {

namespace {

/// What is entered before Ok is pressed, and what is said then; nothing where it is accepted.
using Steps = std::vector<std::pair<std::string, std::string>>;

const std::string kSerial = "txtPort|cmbBaud|cmbParity|cmbData|cmbStop|cmbFlow|txtSilent";

/// A unit U with a branch B; all data types but coil.
struct DialogPlace : Workplace {
    explicit DialogPlace(std::string_view kind = kTcpIp) {
        newConfiguration(kind);
        for (const char* name : {"input status", "input register", "holding register"})
            addDataType(*this, name);
        addUnit(*this, "U", "9");
        addBranch(*this, "U", "B");
        configuration.state.saved = true;
    }
    void open(std::string_view key, std::string_view command, FakeForms::Script script) {
        click(key);
        runDialog(*this, command, std::move(script));
    }
    /// A dialog that closes is opened again for the next step.
    void check(std::string_view key, std::string_view command, const Steps& steps, bool closes = false) {
        for (std::size_t step = 0; step < steps.size();) {
            const std::size_t before = step;
            open(key, command, [&](FakeForm& form) {
                while (form.open && step < steps.size()) {
                    const auto& [fields, message] = steps[step++];
                    confirmed(fields)(form);
                    EXPECT_EQ(messages.take(), message.empty() ? Texts{} : Texts{message}) << fields;
                    EXPECT_EQ(form.open, !closes && !message.empty()) << fields;
                }
            });
            ASSERT_GT(step, before) << "the dialog does not open";
        }
    }
    int counters() const {
        const EditingState& state = configuration.state;
        return state.unitCounter + state.branchCounter + state.itemCounter + state.dataTypeCounter;
    }
};

TEST(Dialogs, ShowAgainWhatWasEntered) {
    struct Case {
        std::string_view kind;
        std::string_view parent;
        std::string_view command;
        std::string proposed;
        std::string off;
        std::string entered;
        std::string_view selected;  // afterwards
        std::string_view listed;    // last
        std::string_view edited;
        std::string shown;
        std::string offThen;
    };
    const std::vector<Case> cases{
        {kTcpIp, "", "mnuAddPlc", "txtName=New Plc 1|txtUI=1|txtTimeout=2000|txtAddress=192.168.0.1|txtPort=",
         kSerial, "txtName=A|txtUI=7|txtTimeout=3.5|txtAddress=host", "A", "A", "A",
         "txtName=A|txtUI=7|txtTimeout=4|txtAddress=host", kSerial},
        {kRtu, "", "mnuAddPlc",
         "txtTimeout=2000|txtAddress=|txtPort=COM1|cmbBaud=9600|cmbParity=NO|cmbData=8|cmbStop=1|"
         "cmbFlow=NONE|txtSilent=10",
         "txtAddress",
         "txtPort=COM3|cmbBaud=19200|cmbParity=ODD|cmbData=7 bits|cmbStop=2|cmbFlow=HARDWARE|txtSilent=2.5",
         "New Plc 1", "New Plc 1", "New Plc 1",
         "txtPort=COM3|cmbBaud=19200|cmbParity=ODD|cmbData=7|cmbStop=2|cmbFlow=HARDWARE|txtSilent=2",
         "txtAddress"},
        {kTcpIp, "U", "mnuAddBranch", "txtBranchName=NewBranch1", "", "txtBranchName=a b", "U.a b", "U",
         "U.a b", "txtBranchName=a b", ""},
        {kTcpIp, kModBusFolder, "mnuAddMBType", "cmbMBType=|txtReadCode=", "txtSingleCode",
         "cmbMBType=coil|txtReadCode=3.5|txtWriteCode=2.5|txtSingleCode=7", kModBusFolder, "coil", "coil",
         "cmbMBType=coil|txtReadCode=4|txtWriteCode=2|txtSingleCode=7", ""},
        {kTcpIp, "U.B", "mnuAddItem",
         "txtItemName=New Item 0|cmbModbusType=|txtAddress=|cmbBit=0|txtElements=0", "cmbBit|txtElements",
         "txtItemName=I a.b|cmbModbusType=holding register|cmbDataType=boolean array|txtComment=pump|"
         "txtAddress=40|cmbBit=3|txtElements=8|cmbAccessRight=WRITE",
         "U.B", "Iab", "U.B.Iab",  // what is no word character did not get in
         "cmbModbusType=holding register|cmbDataType=boolean array|txtComment=pump|txtAddress=40|cmbBit=3|"
         "txtElements=8|cmbAccessRight=WRITE|cmdOk=Confirm Modify",
         "cmdAdd|cmdGroup"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.edited);
        DialogPlace place(c.kind);
        const std::size_t nodes = place.configuration.tree.size();
        const int counters = place.counters();
        place.open(c.parent, c.command, [&](FakeForm& form) {
            EXPECT_EQ(form.shown(c.proposed), c.proposed);
            EXPECT_EQ(form.off(), c.off);
            form.fill(c.entered);
            form.press("cmdCancel");
        });
        EXPECT_EQ(place.configuration.tree.size(), nodes);
        EXPECT_TRUE(place.configuration.state.saved);
        place.open(c.parent, c.command, confirmed(c.entered));
        EXPECT_EQ(place.configuration.tree.size(), nodes + 1);
        EXPECT_EQ(place.selectedKey(), c.selected);
        EXPECT_EQ(place.list.rows().back().text, c.listed);
        EXPECT_EQ(place.counters(), counters + 1);
        EXPECT_FALSE(place.configuration.state.saved);
        place.configuration.state.saved = true;
        editDialog(place, c.edited, [&](FakeForm& form) {
            EXPECT_EQ(form.shown(c.shown), c.shown);
            EXPECT_EQ(form.off(), c.offThen);
            form.press("cmdCancel");
        });
        EXPECT_TRUE(place.configuration.state.saved);
        EXPECT_EQ(place.messages.take(), Texts{});
    }
}

TEST(Dialogs, CheckUnits) {
    const std::string range = "UI identifier must be between 0 and 254.";
    const std::string number = "Invalid Port name. Missing port number.";
    const std::string differs = "Plc U has the same port but different ";
    DialogPlace tcpIp;
    tcpIp.check("", "mnuAddPlc",
                {{"txtName=|txtUI=abc", "Name field is empty."},
                 {"txtUI=abc|txtTimeout=", "UI identifier is not valid."},
                 {"txtUI=255|txtTimeout=x", range},
                 {"txtUI=-1", range},
                 {"txtUI=9|txtTimeout=x", "UI already existing. Please use a different one"},
                 {"txtTimeout=|txtAddress=", "Timeout value is not valid."},
                 {"txtAddress=", "Address field is empty."},
                 {"txtUI=254|txtAddress=999.1", ""}},
                true);
    tcpIp.check("", "mnuAddPlc",
                {{"txtName=U", kNameTaken[0]},
                 {"txtName=u|txtTimeout=3e9", failure(kOverflow, "cmdOk_Click")[0]},
                 {"txtTimeout=30", ""}});  // another case is another name
    // The tree has one name space for units, data types and the folder.
    addUnit(tcpIp, "ModBus", "3");
    EXPECT_EQ(tcpIp.messages.take(), failure(kKeyNotUnique, "mnuAddPlc_Click"));

    DialogPlace rtu(kRtu);
    rtu.check("", "mnuAddPlc",
              {{"txtPort=|txtSilent=", "Port name field empty."},
               {"txtPort=com3", "Invalid Port name. It must begin with \"COM\""},
               {"txtPort=COM", number},
               {"txtPort=COMx|txtSilent=", number},
               {"txtSilent=", "Silent interval field empty."},
               {"txtSilent=1ms|cmbBaud=2400", "Invalid Silent interval."},
               {"cmbBaud=2400|cmbData=7", differs + "Baud Rate"},
               {"cmbData=7|cmbStop=2", differs + "Data Bits"},
               {"cmbStop=2|cmbParity=ODD", differs + "Stop Bits"},
               {"cmbParity=ODD|cmbFlow=HARDWARE", differs + "Parity"},
               {"cmbFlow=HARDWARE", differs + "Flow Control"},
               {"cmbData=8.0|txtTimeout=1|txtSilent=99", ""},
               {"txtUI=2|txtPort=COM12|cmbBaud=2400", ""}},
              true);
    // Only a renamed unit is compared with its own old self.
    editDialog(rtu, "U", confirmed("txtPort=COM4|cmbBaud=19200"));
    editDialog(rtu, "U", confirmed("cmbBaud=2400"));
    EXPECT_EQ(rtu.messages.take(), Texts{});
    editDialog(rtu, "U", confirmed("txtName=V|cmbBaud=9600"));
    EXPECT_EQ(rtu.messages.take(), Texts{differs + "Baud Rate"});
}

TEST(Dialogs, CheckItems) {
    const std::string range = "Memory address field is not valid. It must be between 0 and 65535.";
    DialogPlace place;
    addItem(place, "U.B", "Other");
    place.check("U.B", "mnuAddItem",
                {{"txtItemName=", "Item name field is empty."},
                 {"txtItemName=Other", "ModBus Type field is empty."},
                 {"cmbModbusType=holding register", "Data Type field is empty."},
                 {"cmbDataType=boolean array", "Memory address field is empty."},
                 {"txtAddress=65536", range},
                 {"txtAddress=-1", range},
                 {"txtAddress=65535.2", range},
                 {"txtAddress=65535|txtElements=", "Number of elements field is empty."},
                 {"txtElements=-1", "Number of elements field is not valid."},
                 {"txtElements=0", "Access Rights field is empty."},
                 {"cmbAccessRight=WRITE|txtElements=40000", kNameTaken[0]},
                 {"txtItemName=I", failure(kOverflow, "cmdOk_Click")[0]},
                 {"txtElements=0", ""}});
    EXPECT_EQ(place.list.rows().size(), 2U);  // the list shows it once the dialog is closed
    place.open("U.B", "mnuAddItem", [&](FakeForm& form) {
        fillItem(form, "Bit", "holding register", "boolean");
        form.setText("cmbBit", "");
        expectRefusal(place, form, "", {"Bit number field is empty."});
    });
}

/// A record with values that its dialog does not offer, or refuses with a message.
template <typename Record>
struct Unusual {
    void (*set)(Record&);
    std::string message{};
    void (*derived)(Record&) = nullptr;  ///< what Ok changes all the same; may be nothing
};
const std::string kUnusual = " a  \"b\"\r\n<c>\t& ";

/// Opens the record's dialog, presses Ok, and compares what is then stored.
template <typename Collection, typename Record, typename Print>
void pressOkOn(DialogPlace& place, Collection& records, const Key key, const Unusual<Record>& row,
               const Print& print) {
    Record expected = *records.at(key);
    if (row.derived != nullptr) row.derived(expected);
    const Texts nodes = place.below("");
    editDialog(place, key.str(), confirmed(""));
    EXPECT_EQ(place.messages.take(), row.message.empty() ? Texts{} : Texts{row.message}) << print(expected);
    EXPECT_EQ(print(*records.at(key)), print(expected));
    EXPECT_EQ(place.below(""), nodes);
}

void pressOkOnUnits(std::string_view kind, const std::vector<Unusual<clsPLC>>& rows) {
    for (const auto& row : rows) {
        DialogPlace place(kind);
        auto unit = std::make_shared<clsPLC>();
        unit->setName(kUnusual);
        unit->setAddress("host");
        unit->setCom("COM7");
        row.set(*unit);
        unit->sKey(unit->getName());
        place.configuration.addUnit(unit, false);
        pressOkOn(place, place.configuration.units, unit->sKey(), row,
                  [&](const clsPLC& each) { return each.GetXmlTag(kind); });
    }
}

void setType(clsItem& item, std::string_view type, std::int16_t bit, std::int16_t elements) {
    item.sDataType(type);
    item.nBitNumber(bit);
    item.nElements(elements);
}

TEST(Dialogs, OkKeepsWhatNobodyTouches) {
    pressOkOnUnits(kTcpIp, {
                               {[](clsPLC& u) { u.setAddress(kUnusual), u.setTimeout(-5); }},
                               {[](clsPLC& u) { u.setUI(9); }},  // another unit has it too
                               {[](clsPLC& u) { u.setUI(255); }, "UI identifier must be between 0 and 254."},
                               {[](clsPLC& u) { u.setAddress(""); }, "Address field is empty."},
                           });
    const std::string noPort = "Invalid Port name. It must begin with \"COM\"";
    pressOkOnUnits(kRtu, {
                             {[](clsPLC& u) {
                                 u.setBaud(1200), u.setParity("None"), u.setStopBits(3), u.setDataBits(9);
                                 u.setFlowCtl("XON"), u.setSilent(-1), u.setCom("COM 2 ");
                             }},
                             {[](clsPLC& u) { u.setParity(kUnusual), u.setFlowCtl("none"), u.setBaud(-1); }},
                             {[](clsPLC& u) { u.setParity(""), u.setFlowCtl(""), u.setBaud(0); }},
                             {[](clsPLC& u) { u.setBaud(1200), u.setCom("com3"); }, noPort},
                             {[](clsPLC& u) { u.setCom(""); }, "Port name field empty."},
                         });

    const std::string range = "Memory address field is not valid. It must be between 0 and 65535.";
    const std::vector<Unusual<clsItem>> items{
        {[](clsItem& i) { i.sComment(kUnusual); }},
        {[](clsItem& i) { i.sAccessRight("rw"), setType(i, "holding register:64 bit", 0, 0); }},
        {[](clsItem& i) { setType(i, "holding register:array", 0, 3); }},
        {[](clsItem& i) { setType(i, "my table:string", 0, 32767); }},
        {[](clsItem& i) { setType(i, "my table:" + kUnusual, 0, 0); }},
        {[](clsItem& i) { i.sAccessRight("READWRITE"), setType(i, "input register:boolean array", 99, 0); }},
        {[](clsItem& i) { setType(i, "holding register:boolean", -5, 0); }},
        {[](clsItem& i) { setType(i, "holding register:string", 3, 4); }, "",
         [](clsItem& i) { i.nBitNumber(0); }},
        {[](clsItem& i) { setType(i, "holding register:64 bit", 3, 4); }, "",
         [](clsItem& i) { setType(i, "holding register:64 bit", 0, 0); }},
        {[](clsItem& i) { setType(i, "coil:boolean array", 3, 4); }, "", [](clsItem& i) { i.nBitNumber(0); }},
        // Coils are booleans, whatever else stands there.
        {[](clsItem& i) { setType(i, "coil:string", 3, 4); }, "",
         [](clsItem& i) { setType(i, "coil:boolean", 0, 0); }},
        {[](clsItem& i) { setType(i, "my table:string", 0, -3); }, "Number of elements field is not valid."},
        {[](clsItem& i) { i.sComment(kUnusual), i.nAddress(-7); }, range},
        {[](clsItem& i) { setType(i, "my table:boolean", 99, 9), i.nAddress(70000); }, range},
        {[](clsItem& i) { i.sDataType("my table"); }, "Data Type field is empty."},
        {[](clsItem& i) { i.sDataType(":string"); }, "ModBus Type field is empty."},
        {[](clsItem& i) { i.sAccessRight(""); }, "Access Rights field is empty."},
    };
    for (const auto& row : items) {
        DialogPlace place;
        clsItem& item = plantItem(place.configuration, place.node("U.B"), kUnusual);
        row.set(item);
        pressOkOn(place, place.configuration.items, item.sKey(), row, [](const clsItem& i) {
            return i.sName() + "|" + i.sComment() + "|" + i.sDataType() + "|" + i.sAccessRight() + "|" +
                   std::to_string(i.nAddress()) + "/" + std::to_string(i.nBitNumber()) + "/" +
                   std::to_string(i.nElements());
        });
    }

    const std::vector<Unusual<clsModBusType>> types{
        {[](clsModBusType& t) { t.setName(kUnusual), t.setReadCode(255), t.setWriteCode(255); }},
        {[](clsModBusType& t) { t.setName("coil"), t.setSingleWrCode(255); }},
        {[](clsModBusType& t) { t.setName("Coil"); }},
        {[](clsModBusType& t) { t.setName("my input"), t.setWriteCode(255), t.setSingleWrCode(7); }, "",
         [](clsModBusType& t) { t.setWriteCode(0), t.setSingleWrCode(0); }},
    };
    for (const auto& row : types) {
        DialogPlace place;
        auto record = std::make_shared<clsModBusType>();
        row.set(*record);
        place.configuration.addDataType(record);
        pressOkOn(place, place.configuration.dataTypes, record->getName(), row,
                  [](const clsModBusType& t) { return t.GetXmlTag() + t.getName(); });
    }

    for (const std::string& name : {kUnusual, std::string()}) {
        DialogPlace place;
        const Key key = plantBranch(place.configuration, place.node("U"), name).key();
        pressOkOn(place, place.configuration.branches, key, Unusual<clsBranch>{nullptr},
                  [](const clsBranch& branch) { return branch.sKey().str() + "|" + branch.sName(); });
    }
}

TEST(Dialogs, UnusualValuesBelongToTheirOwnTable) {
    DialogPlace place;
    addItem(place, "U.B", "I");
    place.item("U.B.I").sDataType("my table:string");
    place.item("U.B.I").sAccessRight("rw");
    editDialog(place, "U.B.I", [](FakeForm& form) {
        for (const auto& [table, types, rights] : std::vector<std::tuple<std::string, Texts, Texts>>{
                 {"input status", {"boolean", "boolean array"}, {"READ"}},
                 {"my table",
                  {"boolean", "boolean array", "string"},
                  {"READ", "WRITE", "READWRITE", "rw"}}}) {
            form.choose("cmbModbusType", table);
            EXPECT_EQ(form.items("cmbDataType"), types);
            EXPECT_EQ(form.items("cmbAccessRight"), rights);
            EXPECT_EQ(form.text("cmbDataType") + form.text("cmbAccessRight"), "");
        }
    });
    auto custom = std::make_shared<clsModBusType>();
    custom->setName("my table");
    custom->setWriteCode(7);
    place.configuration.addDataType(custom);
    editDialog(place, "my table", [](FakeForm& form) {
        form.choose("cmbMBType", "input status");
        form.choose("cmbMBType", "my table");
        EXPECT_EQ(form.text("txtWriteCode") + form.off(), "7txtSingleCode");
    });
    EXPECT_EQ(place.messages.take(), Texts{});
}

TEST(Dialogs, CheckDataTypes) {
    DialogPlace place;
    place.check(kModBusFolder, "mnuAddMBType",
                {{"", "Check Read Function code"},
                 // Codes without a name: no node could stand for it.
                 {"txtReadCode=1|txtWriteCode=1", failure(kInvalidCall, "cmdOk_Click")[0]},
                 {"cmbMBType=holding register|txtReadCode=x", "ModBus type already existing"},
                 {"cmbMBType=coil|txtReadCode=x|txtWriteCode=x", "Check Read Function code"},
                 {"txtReadCode=+3e0|txtSingleCode=", "Check Write Function code"},
                 {"txtWriteCode=16", "Check Single Write Function code"},
                 {"txtSingleCode=300", failure(kOverflow, "cmdOk_Click")[0]},
                 {"txtSingleCode=6", ""}});
    EXPECT_EQ(place.list.rows().size(), 4U);
}

TEST(Dialogs, CheckBranches) {
    DialogPlace place;
    for (const char* name : {"", "a.b"}) addBranch(place, "U", name);
    place.check("U", "mnuAddBranch",
                {{"txtBranchName=a.b", kNameTaken[0]}, {"txtBranchName=", kNameTaken[0]}});
    // A sibling item has the key: the check lets the name pass, the tree does not.
    addItem(place, "U", "Run");
    addBranch(place, "U", "Run");
    EXPECT_EQ(place.messages.take(), failure(kKeyNotUnique, "mnuAddBranch_Click"));
    // Under U.a, "b" has the key of "a.b" under U.
    addBranch(place, "U", "a");
    addBranch(place, "U.a", "b");
    EXPECT_EQ(place.messages.take(), failure(kKeyInCollection, "cmdOk_Click"));
    place.configuration.state.branchCounter = 32767;
    addBranch(place, "U", "last");
    EXPECT_EQ(place.messages.take(), failure(kOverflow, "mnuAddBranch_Click"));
    EXPECT_EQ(place.selectedKey(), "U.last");
}

TEST(Dialogs, RenameARecordWithAllBelowIt) {
    struct Case {
        std::string_view key;
        std::string field;
        Texts below;  // unit V afterwards
        std::string_view selected;
        Texts rows;
    };
    const std::vector<Case> cases{
        {"V", "txtName", {"New.A", "New.A.x", "New.B", "New.I", "New.J"}, "New", {"New"}},
        {"V.A", "txtBranchName", {"V.B", "V.I", "V.J", "V.New", "V.New.x"}, "V.New", {"x"}},
        {"V.A.x", "txtItemName", {"V.A", "V.A.New", "V.B", "V.I", "V.J"}, "V.A", {"New"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        DialogPlace place;
        plant(place, {"V", "V.A/", "V.B/", "V.J", "V.I", "V.A.x", "W"});  // V and W have one identifier
        place.item("V.A.x").sDataType("holding register:string");
        place.click("V");
        editDialog(place, c.key, confirmed(""));  // keeping the name is no duplicate
        editDialog(place, c.key, confirmed(c.field + "=New"));
        EXPECT_EQ(place.messages.take(), Texts{});
        EXPECT_EQ(place.below(c.key == "V" ? "New" : "V"), c.below);
        EXPECT_EQ(place.selectedKey(), c.selected);
        Texts rows;
        for (const ListRow& row : place.list.rows()) rows.push_back(row.text);
        EXPECT_EQ(rows, c.rows);
        EXPECT_FALSE(place.configuration.state.saved);
    }
    DialogPlace place;
    plant(place, {"V", "U.C/", "U.i", "U.j"});
    for (const auto& [key, taken] :
         Fields{{"U", "txtName=V"}, {"U.C", "txtBranchName=B"}, {"U.j", "txtItemName=i"}})
        editDialog(place, key, [&](FakeForm& form) { expectRefusal(place, form, taken, kNameTaken); });
}

TEST(Dialogs, ADataTypeOfAnotherNameKeepsItsNode) {
    DialogPlace place;
    place.configuration.dataTypes.at("holding register")->setSingleWrCode(0);
    editDialog(place, "input status", [](FakeForm& form) {
        EXPECT_EQ(form.text("txtReadCode") + form.off(), "2txtWriteCode|chkSingle|txtSingleCode");
    });
    editDialog(place, "holding register", [](FakeForm& form) {
        EXPECT_EQ(form.text("txtSingleCode") + form.off(), "txtSingleCode");
        form.toggle("chkSingle");
        confirmed("txtSingleCode=9")(form);
    });
    EXPECT_EQ(place.configuration.dataTypes.at("holding register")->getSingleWrCode(), 9);
    EXPECT_TRUE(place.configuration.state.saved);
    editDialog(place, "holding register", confirmed("cmbMBType=coil"));
    EXPECT_EQ(place.node("holding register").text(), "holding register");
    EXPECT_TRUE(place.configuration.dataTypes.contains("coil"));
    EXPECT_EQ(place.messages.take(), Texts{});
    editDialog(place, "input status", [&](FakeForm& form) {
        expectRefusal(place, form, "cmbMBType=coil", failure(kKeyInCollection, "cmdOk_Click"));
    });
    EXPECT_FALSE(place.configuration.dataTypes.contains("input status"));  // not restored
    editDialog(place, "holding register", [](FakeForm& form) { EXPECT_EQ(form.text("txtReadCode"), ""); });
    EXPECT_EQ(place.messages.take(), failure(kInvalidCall, "Form_Load"));
    const Texts nodes = place.below("");
    addDataType(place, "holding register");  // the node without a record gets the new one
    editDialog(place, "holding register", [](FakeForm& form) { EXPECT_EQ(form.text("txtReadCode"), "3"); });
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.below(""), nodes);
}

TEST(Dialogs, AChosenTablePresetsTheCodes) {
    DialogPlace place;
    place.open(kModBusFolder, "mnuAddMBType", [](FakeForm& form) {
        const std::string noWriting = "txtWriteCode|chkSingle|txtSingleCode";
        for (const auto& [name, shown, off] : std::vector<std::array<std::string, 3>>{
                 {"input status", "txtReadCode=2|txtWriteCode=|txtSingleCode=", noWriting},
                 {"coil", "txtReadCode=1|txtWriteCode=15|txtSingleCode=5", ""},
                 {"input register", "txtReadCode=4|txtWriteCode=|txtSingleCode=", noWriting},
                 {"holding register", "txtReadCode=3|txtWriteCode=16|txtSingleCode=6", ""}}) {
            form.choose("cmbMBType", name);
            EXPECT_EQ(form.shown(shown), shown);
            EXPECT_EQ(form.off(), off);
            EXPECT_EQ(form.checked("chkSingle"), off.empty());
        }
        form.toggle("chkSingle");
        EXPECT_EQ(form.text("txtSingleCode") + form.off(), "txtSingleCode");
        form.toggle("chkSingle");
        EXPECT_EQ(form.off(), "");
    });
}

// Also from a branch that lists items.
TEST(Dialogs, OnlyTheNodesThatTheyAddToOpenThem) {
    DialogPlace place;
    addItem(place, "U.B", "I");
    const std::vector<std::pair<std::string_view, Texts>> cases{
        {"", {"mnuAddPlc"}},
        {"ModBus", {"mnuAddMBType"}},
        {"holding register", {}},
        {"U", {"mnuAddBranch", "mnuAddItem"}},
        {"U.B", {"mnuAddMBType", "mnuAddBranch", "mnuAddItem"}},
        {"U.B.I", {}},
    };
    for (const auto& [key, expected] : cases) {
        Texts opened;
        for (const char* command : {"mnuAddPlc", "mnuAddMBType", "mnuAddBranch", "mnuAddItem"}) {
            place.forms.shown.clear();
            place.click(key);
            place.run(command);
            if (!place.forms.shown.empty()) opened.emplace_back(command);
        }
        EXPECT_EQ(opened, expected) << key;
    }
}

TEST(ItemDialog, TheTableDecidesTypesAndRightsAndTheTypeDecidesBitAndElements) {
    DialogPlace place;
    addDataType(place, "coil");
    auto custom = std::make_shared<clsModBusType>();
    custom->setName("my register");
    place.configuration.addDataType(custom);
    struct Case {
        std::string table;
        std::string label;
        std::size_t types;
        std::size_t rights;
        std::string off;
    };
    const std::vector<Case> cases{
        {"holding register", "boolean", 15, 3, "txtElements"},
        {"holding register", "string", 15, 3, "cmbBit"},
        {"input register", "boolean array", 15, 1, ""},
        {"input register", "32 bit float", 15, 1, "cmbBit|txtElements"},
        {"coil", "boolean", 2, 3, "cmbBit|txtElements"},
        {"input status", "boolean array", 2, 1, "cmbBit"},
        {"my register", "boolean", 2, 3, "txtElements"},
    };
    place.open("U.B", "mnuAddItem", [&](FakeForm& form) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.table + ":" + c.label);
            form.choose("cmbModbusType", c.table);
            EXPECT_EQ(form.text("cmbDataType") + form.text("cmbAccessRight"), "");
            EXPECT_EQ(form.items("cmbDataType").size(), c.types);
            EXPECT_EQ(form.items("cmbAccessRight").size(), c.rights);
            form.choose("cmbDataType", c.label);
            EXPECT_EQ(form.off(), c.off);
            const bool elements = form.enabled("txtElements");
            if (elements) form.type("txtElements", "9");
            EXPECT_EQ(form.text("txtElements"), elements ? "9" : "0");
        }
    });
}

TEST(ItemDialog, EveryValueTypeMovesByItsSize) {
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
        {hr, {"string"}, {10, 0}, 3, {13, 0}},
        {hr, {"string"}, {10, 0}, 5, {13, 0}},
        {hr, {"unsigned 16 bit array", "signed 16 bit array"}, {10, 0}, 7, {17, 0}},
        {hr, {"unsigned 32 bit array", "signed 32 bit array", "32 bit float array"}, {10, 0}, 7, {24, 0}},
        {hr, {"anything else"}, {10, 2}, 7, {10, 2}},
    };
    for (const Case& c : cases) {
        for (const std::string& label : c.labels)
            EXPECT_EQ(advanced(c.from, c.table, label, c.elements), c.to) << c.table << ':' << label;
    }
}

// A name that is taken; and one that passes the check, but whose key does not.
TEST(ItemDialog, AGroupStopsAtTheFirstRefusal) {
    DialogPlace place;
    plant(place, {"U.B.New_Item_2", "U.C/", "U.C.New_Item_3/"});
    for (const auto& [branch, message] : std::vector<std::pair<std::string, Texts>>{
             {"U.B", kNameTaken}, {"U.C", failure(kKeyNotUnique, "cmdAdd_Click")}}) {
        place.pointer.shapes.clear();
        place.open(branch, "mnuAddItem", [&](FakeForm& form) {
            fillItem(form, "First", "holding register", "boolean array", "10");
            form.fill("txtComment=pump|cmbBit=10|txtElements=20");
            form.press("cmdGroup");
            EXPECT_FALSE(form.enabled("frmMain"));
            EXPECT_EQ(form.text("txtNumbItems") + form.focused, "1txtNumbItems");
            form.type("txtNumbItems", "5");
            form.press("cmdOkNumber");
            EXPECT_TRUE(form.open && form.enabled("frmMain"));
            EXPECT_FALSE(form.visible("frmInserimento"));
            EXPECT_EQ(form.focused, "txtItemName");
            EXPECT_EQ(place.pointer.shapes.front(), Pointer::Hourglass);
        });
        EXPECT_EQ(place.messages.take(), message);
    }
    EXPECT_EQ(place.below("U"), (Texts{"U.B", "U.B.First", "U.B.New_Item_1", "U.B.New_Item_2", "U.C",
                                       "U.C.First", "U.C.New_Item_3"}));
    const clsItem& next = place.item("U.B.New_Item_1");
    EXPECT_EQ((std::vector<int>{next.nAddress(), next.nBitNumber(), next.nElements()}),
              (std::vector{11, 14, 20}));
    EXPECT_EQ(next.sComment(), "");
}

TEST(ItemDialog, TheGroupPanelTakesNumbersOnly) {
    const std::string invalid = "Number of items is not valid.";
    DialogPlace place;
    place.open("U.B", "mnuAddItem", [&](FakeForm& form) {
        fillItem(form, "First");
        for (const auto& [number, message] : Fields{{"", invalid},
                                                    {"1-2", invalid},
                                                    {".", invalid},
                                                    {"32768", failure(kOverflow, "cmdOkNumber_Click")[0]},
                                                    {"0.5", ""},
                                                    {"2.5", ""}}) {
            if (!form.visible("frmInserimento")) form.press("cmdGroup");
            form.escape();  // leaves the panel only
            EXPECT_TRUE(form.open && form.enabled("frmMain") && !form.visible("frmInserimento"));
            form.press("cmdGroup");
            form.type("txtNumbItems", number);
            form.press("cmdOkNumber");
            EXPECT_EQ(place.messages.take(), message.empty() ? Texts{} : Texts{message}) << number;
            EXPECT_EQ(form.visible("frmInserimento"), !message.empty());  // for another try
        }
    });
    EXPECT_EQ(place.configuration.items.size(), 2U);
    place.open("U.B", "mnuAddItem", [&](FakeForm& form) {
        fillItem(form, "Third");
        form.press("cmdAdd");
        EXPECT_EQ(form.focused + form.text("txtItemName"), "txtItemNameNew_Item_3");
        EXPECT_EQ(place.window.status[StatusField::Counts], "1 unit, 1 branch, 3 items");
        form.escape();
        EXPECT_FALSE(form.open);
    });
}

TEST(ItemDialog, ARecordSharedByADraggedCopyIsEditedUnderTheNodesKey) {
    DialogPlace place;
    plant(place, {"U.B.Run", "U.C/"});
    const auto record = place.configuration.items.at("U.B.Run");
    record->sKey("U.C.Run");
    place.configuration.addItem(record, place.node("U.C"));
    editDialog(place, "U.B.Run", confirmed("txtAddress=77"));
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.item("U.B.Run").nAddress(), 77);
    EXPECT_EQ(place.item("U.C.Run").nAddress(), 0);
}

}  // namespace

}  // namespace trevandix::testing
