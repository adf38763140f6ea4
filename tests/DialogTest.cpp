// The four property dialogs: what they propose, check, add and change.
#include <gtest/gtest.h>

#include <array>

#include "Plant.h"
#include "model/ItemAdvance.h"

namespace trevandix::testing {

namespace {

const std::string kSerialOff = "|off=txtPort cmbBaud cmbParity cmbData cmbStop cmbFlow txtSilent";

/// A unit U with a branch B; all data types but coil.
struct DialogPlace : Workplace {
    explicit DialogPlace(std::string_view kind = kTcpIp) {
        newConfiguration(kind);
        for (const char* name : {"input status", "input register", "holding register"})
            addDataType(*this, name);
        addUnit(*this, "U", "9");
        addBranch(*this, "U", "B");
        configuration.setSaved(true);
    }
    /// What is entered before Ok is pressed, and what is said then, nothing where it is accepted; what the
    /// dialog shows when it is refused.
    void check(const std::string& steps, const Fields& rows, const std::string& refused = "open=yes") {
        Fields lines;
        for (const auto& [fields, message] : rows)
            lines.emplace_back(fields.empty() ? "cmdOk" : fields + "|cmdOk",
                               message.empty() ? "open=no" : refused + " | said " + message);
        work(*this, steps, lines);
    }
    int counters() const {
        const EditingState& state = configuration.state;
        return state.unitCounter + state.branchCounter + state.itemCounter + state.dataTypeCounter;
    }
};

TEST(Dialogs, ShowAgainWhatWasEntered) {
    struct Case {
        std::string_view kind;
        std::string parent;
        std::string command;
        std::string proposed;
        std::string entered;
        std::string seen;
        std::string edited;
        std::string shown;
    };
    const std::vector<Case> cases{
        {kTcpIp, "top", "mnuAddPlc",
         "txtName=New Plc 1|txtUI=1|txtTimeout=2000|txtAddress=192.168.0.1|txtPort=" + kSerialOff,
         "txtName=A|txtUI=7|txtTimeout=3.5|txtAddress=host", "list A: A", "A",
         "txtName=A|txtUI=7|txtTimeout=4|txtAddress=host" + kSerialOff},
        {kRtu, "top", "mnuAddPlc",
         "txtTimeout=2000|txtAddress=|txtPort=COM1|cmbBaud=9600|cmbParity=NO|cmbData=8|cmbStop=1|"
         "cmbFlow=NONE|txtSilent=10|off=txtAddress",
         "txtPort=COM3|cmbBaud=19200|cmbParity=ODD|cmbData=7 bits|cmbStop=2|cmbFlow=HARDWARE|txtSilent=2.5",
         "list New Plc 1: New Plc 1", "New Plc 1",
         "txtPort=COM3|cmbBaud=19200|cmbParity=ODD|cmbData=7|cmbStop=2|cmbFlow=HARDWARE|txtSilent=2|"
         "off=txtAddress"},
        {kTcpIp, "U", "mnuAddBranch", "txtBranchName=NewBranch1", "txtBranchName=a b", "list U.a b: U",
         "U.a b", "txtBranchName=a b"},
        {kTcpIp, "ModBus", "mnuAddMBType", "cmbMBType=|txtReadCode=|off=txtSingleCode",
         "cmbMBType=coil|txtReadCode=3.5|txtWriteCode=2.5|txtSingleCode=7",
         "list ModBus: input status input register holding register coil", "coil",
         "cmbMBType=coil|txtReadCode=4|txtWriteCode=2|txtSingleCode=7|off="},
        {kTcpIp, "U.B", "mnuAddItem",
         "txtItemName=New Item 0|cmbModbusType=|txtAddress=|cmbBit=0|txtElements=0|off=cmbBit txtElements",
         "txtItemName=I a.b|cmbModbusType=holding register|cmbDataType=boolean array|txtComment=pump|"
         "txtAddress=40|cmbBit=3|txtElements=8|cmbAccessRight=WRITE",
         "list U.B: Iab", "U.B.Iab",  // what is no word character did not get in
         "cmbModbusType=holding register|cmbDataType=boolean array|txtComment=pump|txtAddress=40|cmbBit=3|"
         "txtElements=8|cmbAccessRight=WRITE|cmdOk=Confirm Modify|off=cmdAdd cmdGroup"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.edited);
        DialogPlace place(c.kind);
        const Texts nodes = place.below("");
        const int counters = place.counters();
        work(place, c.parent + "; " + c.command, {{"", c.proposed}, {c.entered + "|cmdCancel", "open=no"}});
        EXPECT_EQ(place.below(""), nodes);
        play(place, {{"", "saved"}});
        work(place, c.parent + "; " + c.command, {{c.entered + "|cmdOk", "open=no"}});
        play(place, {{"", c.seen + " | unsaved"}});
        EXPECT_EQ(place.counters(), counters + 1);
        place.configuration.setSaved(true);
        work(place, "edit " + c.edited, {{"", c.shown}, {"cmdCancel", "open=no"}});
        play(place, {{"", "saved"}});
    }
}

TEST(Dialogs, CheckUnits) {
    const std::string range = "UI identifier must be between 0 and 254.";
    const std::string number = "Invalid Port name. Missing port number.";
    const std::string differs = "Plc U has the same port but different ";
    DialogPlace tcpIp;
    tcpIp.check("top; mnuAddPlc",
                {{"txtName=|txtUI=abc", "Name field is empty."},
                 {"txtUI=abc|txtTimeout=", "UI identifier is not valid."},
                 {"txtUI=255|txtTimeout=x", range},
                 {"txtUI=-1", range},
                 {"txtUI=9|txtTimeout=x", "UI already existing. Please use a different one"},
                 {"txtTimeout=|txtAddress=", "Timeout value is not valid."},
                 {"txtAddress=", "Address field is empty."},
                 {"txtUI=254|txtAddress=999.1", ""}},
                "open=no");
    tcpIp.check("top; mnuAddPlc", {{"txtName=U", kNameTaken[0]},
                                   {"txtName=u|txtTimeout=3e9", failure(kOverflow, "cmdOk_Click")[0]},
                                   {"txtTimeout=30", ""}});  // another case is another name
    // The tree has one name space for units, data types and the folder.
    addUnit(tcpIp, "ModBus", "3");
    EXPECT_EQ(tcpIp.messages.take(), failure(kKeyNotUnique, "mnuAddPlc_Click"));

    DialogPlace rtu(kRtu);
    rtu.check("top; mnuAddPlc",
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
              "open=no");
    // Only a renamed unit is compared with its own old self.
    play(rtu, {{"edit U: txtPort=COM4|cmbBaud=19200", ""},
               {"edit U: cmbBaud=2400", ""},
               {"edit U: txtName=V|cmbBaud=9600", "said " + differs + "Baud Rate"}});
}

TEST(Dialogs, CheckItems) {
    const std::string range = "Memory address field is not valid. It must be between 0 and 65535.";
    DialogPlace place;
    addItem(place, "U.B", "Other");
    place.check("U.B; mnuAddItem", {{"txtItemName=", "Item name field is empty."},
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
    play(place, {{"", "list U.B: I Other"}});  // the list shows it once the dialog is closed
    runDialog(place, "mnuAddItem", [&](FakeForm& form) {
        fillItem(form, "Bit", "holding register", "boolean");
        form.setText("cmbBit", "");
        form.press("cmdOk");
    });
    play(place, {{"", "said Bit number field is empty."}});
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
    play(place, {{"edit " + key.str() + ": ", row.message.empty() ? "" : "said " + row.message}});
    EXPECT_EQ(print(*records.at(key)), print(expected));
    EXPECT_EQ(place.below(""), nodes);
}

void pressOkOnUnits(std::string_view kind, const std::vector<Unusual<clsPLC>>& rows) {
    for (const auto& row : rows) {
        DialogPlace place(kind);
        clsPLC unit;
        unit.setName(kUnusual);
        unit.setAddress("host");
        unit.setCom("COM7");
        row.set(unit);
        unit.sKey(unit.getName());
        place.configuration.addUnit(unit);
        pressOkOn(place, place.configuration.units, unit.sKey(), row,
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
        clsModBusType record;
        row.set(record);
        place.configuration.addDataType(record);
        pressOkOn(place, place.configuration.dataTypes, record.getName(), row,
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
    const std::string chosen = "cmbDataType=|cmbAccessRight=|cmbDataType.count=";
    work(place, "edit U.B.I",
         {{"cmbModbusType=input status", chosen + "2|cmbAccessRight.count=1"},
          {"cmbModbusType=my table", chosen + "3|cmbAccessRight.count=4"},
          {"cmbDataType=string|cmbAccessRight=rw", "open=yes"}});
    clsModBusType custom;
    custom.setName("my table");
    custom.setWriteCode(7);
    place.configuration.addDataType(custom);
    work(place, "edit my table",
         {{"cmbMBType=input status|cmbMBType=my table", "txtWriteCode=7|off=txtSingleCode"}});
}

TEST(Dialogs, CheckDataTypes) {
    DialogPlace place;
    place.check("ModBus; mnuAddMBType",
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
    place.check("U; mnuAddBranch", {{"txtBranchName=a.b", kNameTaken[0]}, {"txtBranchName=", kNameTaken[0]}});
    const std::string notUnique = "said " + failure(kKeyNotUnique, "mnuAddBranch_Click")[0];
    addItem(place, "U", "Run");
    play(place,
         {// A sibling item has the key: the check lets the name pass, the tree does not.
          {"U; mnuAddBranch: txtBranchName=Run", notUnique},
          // Under U.a, "b" has the key of "a.b" under U.
          {"U; mnuAddBranch: txtBranchName=a", ""},
          {"U.a; mnuAddBranch: txtBranchName=b", "said " + failure(kKeyInCollection, "cmdOk_Click")[0]}});
    behindTheDoor(place.configuration.state).branchCounter = 32767;
    play(place, {{"U; mnuAddBranch: txtBranchName=last",
                  "list U.last: U | said " + failure(kOverflow, "mnuAddBranch_Click")[0]}});
}

TEST(Dialogs, RenameARecordWithAllBelowIt) {
    for (const auto& [key, field, seen] : std::vector<std::array<std::string, 3>>{
             {"V", "txtName", "tree New: A(x) B I J | list New: New"},
             {"V.A", "txtBranchName", "tree V: B I J New(x) | list V.New: x"},
             {"V.A.x", "txtItemName", "tree V: A(New) B I J | list V.A: New"}}) {
        DialogPlace place;
        plant(place, {"V", "V.A/", "V.B/", "V.J", "V.I", "V.A.x", "W"});  // V and W have one identifier
        place.item("V.A.x").sDataType("holding register:string");
        play(place, {{"V; edit " + key + ": ", ""},  // keeping the name is no duplicate
                     {"edit " + key + ": " + field + "=New", seen + " | unsaved"}});
    }
    DialogPlace place;
    plant(place, {"V", "U.C/", "U.i", "U.j"});
    for (const auto& [key, taken] :
         Fields{{"U", "txtName=V"}, {"U.C", "txtBranchName=B"}, {"U.j", "txtItemName=i"}})
        place.check("edit " + key, {{taken, kNameTaken[0]}});
}

TEST(Dialogs, ADataTypeOfAnotherNameKeepsItsNode) {
    DialogPlace place;
    const auto& types = place.configuration.dataTypes;
    behindTheDoor(*types.at("holding register")).setSingleWrCode(0);
    work(place, "edit input status", {{"", "txtReadCode=2|off=txtWriteCode chkSingle txtSingleCode"}});
    work(place, "edit holding register",
         {{"", "txtSingleCode=|off=txtSingleCode"}, {"chkSingle|txtSingleCode=9|cmdOk", "open=no"}});
    EXPECT_EQ(types.at("holding register")->getSingleWrCode(), 9);
    play(place, {{"", "saved"},
                 {"edit holding register: cmbMBType=coil",
                  "tree ModBus: holding register input register input status"}});
    EXPECT_TRUE(types.contains("coil"));
    place.check("edit input status", {{"cmbMBType=coil", failure(kKeyInCollection, "cmdOk_Click")[0]}});
    EXPECT_FALSE(types.contains("input status"));  // not restored
    work(place, "edit holding register",
         {{"", "txtReadCode= | said " + failure(kInvalidCall, "Form_Load")[0]}});
    // The node without a record gets the new one.
    play(place, {{"ModBus; mnuAddMBType: cmbMBType=holding register",
                  "tree ModBus: holding register input register input status"}});
    work(place, "edit holding register", {{"", "txtReadCode=3"}});
}

TEST(Dialogs, AChosenTablePresetsTheCodes) {
    DialogPlace place;
    const std::string noWriting =
        "txtWriteCode=|txtSingleCode=|chkSingle=off|off=txtWriteCode chkSingle txtSingleCode|txtReadCode=";
    work(place, "ModBus; mnuAddMBType",
         {{"cmbMBType=input status", noWriting + "2"},
          {"cmbMBType=coil", "txtReadCode=1|txtWriteCode=15|txtSingleCode=5|chkSingle=on|off="},
          {"cmbMBType=input register", noWriting + "4"},
          {"cmbMBType=holding register", "txtReadCode=3|txtWriteCode=16|txtSingleCode=6|chkSingle=on|off="},
          {"chkSingle", "txtSingleCode=|off=txtSingleCode"},
          {"chkSingle", "off="}});
}

// Also from a branch that lists items.
TEST(Dialogs, OnlyTheNodesThatTheyAddToOpenThem) {
    DialogPlace place;
    addItem(place, "U.B", "I");
    for (const auto& [key, opened] : Fields{{"top", "frmPLC"},
                                            {"ModBus", "frmModBus"},
                                            {"holding register", ""},
                                            {"U", "frmBranch frmItems"},
                                            {"U.B", "frmModBus frmBranch frmItems"},
                                            {"U.B.I", ""}})
        play(place, {{key + "; mnuAddPlc; mnuAddMBType; mnuAddBranch; mnuAddItem", "opens " + opened}});
}

TEST(ItemDialog, TheTableDecidesTypesAndRightsAndTheTypeDecidesBitAndElements) {
    DialogPlace place;
    addDataType(place, "coil");
    clsModBusType custom;
    custom.setName("my register");
    place.configuration.addDataType(custom);
    const auto offers = [](const char* types, const char* rights) {
        return std::string("cmbDataType=|cmbAccessRight=|txtElements=0|cmbDataType.count=") + types +
               "|cmbAccessRight.count=" + rights;
    };
    work(place, "U.B; mnuAddItem",
         {{"cmbModbusType=holding register", offers("15", "3")},
          {"cmbDataType=string|txtElements=9", "txtElements=9|off=cmbBit"},
          {"cmbDataType=boolean", "txtElements=0|off=txtElements"},
          {"cmbModbusType=input register", offers("15", "1")},
          {"cmbDataType=boolean array|txtElements=9", "off="},
          {"cmbDataType=32 bit float", "txtElements=0|off=cmbBit txtElements"},
          {"cmbModbusType=coil", offers("2", "3")},
          {"cmbDataType=boolean", "off=cmbBit txtElements"},
          {"cmbModbusType=input status", offers("2", "1")},
          {"cmbDataType=boolean array", "off=cmbBit"},
          {"cmbModbusType=my register", offers("2", "3")},
          {"cmbDataType=boolean", "off=txtElements"}});
}

TEST(ItemDialog, EveryValueTypeMovesByItsSize) {
    struct Case {
        std::string table;
        std::string labels;
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
        {hr, "unsigned 16 bit|signed 16 bit", {10, 0}, 0, {11, 0}},
        {hr, "unsigned 32 bit|signed 32 bit|32 bit float", {10, 0}, 0, {12, 0}},
        {hr, "boolean array", {100, 10}, 20, {101, 14}},
        {hr, "boolean array", {100, 0}, 32, {102, 0}},
        {"input status", "boolean array", {100, 0}, 20, {120, 0}},
        {hr, "unsigned 8 bit array|signed 8 bit array|string", {10, 0}, 2, {12, 0}},
        {hr, "string", {10, 0}, 3, {13, 0}},
        {hr, "string", {10, 0}, 5, {13, 0}},
        {hr, "unsigned 16 bit array|signed 16 bit array", {10, 0}, 7, {17, 0}},
        {hr, "unsigned 32 bit array|signed 32 bit array|32 bit float array", {10, 0}, 7, {24, 0}},
        {hr, "anything else", {10, 2}, 7, {10, 2}},
    };
    for (const Case& c : cases) {
        for (const std::string& label : split(c.labels))
            EXPECT_EQ(advanced(c.from, c.table, label, c.elements), c.to) << c.table << ':' << label;
    }
}

// A name that is taken; and one that passes the check, but whose key does not.
TEST(ItemDialog, AGroupStopsAtTheFirstRefusal) {
    DialogPlace place;
    plant(place, {"U.B.New_Item_2", "U.C/", "U.C.New_Item_3/"});
    for (const auto& [branch, message] :
         Fields{{"U.B", kNameTaken[0]}, {"U.C", failure(kKeyNotUnique, "cmdAdd_Click")[0]}}) {
        work(place, branch + "; mnuAddItem",
             {{"txtItemName=First|cmbModbusType=holding register|cmbDataType=boolean array|txtAddress=10|"
               "cmbAccessRight=READ|txtComment=pump|cmbBit=10|txtElements=20|cmdGroup",
               "txtNumbItems=1|focus=txtNumbItems|off=frmMain|hidden="},
              {"txtNumbItems=5|cmdOkNumber",
               "focus=txtItemName|off=|hidden=frmInserimento|open=yes | said " + message}});
    }
    play(place, {{"", "tree U: B(First New_Item_1 New_Item_2) C(First New_Item_3)"}});
    const clsItem& next = place.item("U.B.New_Item_1");
    EXPECT_EQ(next.sComment(), "");
    work(place, "edit U.B.New_Item_1", {{"", "txtAddress=11|cmbBit=14|txtElements=20|txtComment="}});
}

TEST(ItemDialog, TheGroupPanelTakesNumbersOnly) {
    const std::string again = "hidden=|off=frmMain | said ";  // for another try
    const std::string invalid = again + "Number of items is not valid.";
    const std::string item =
        "txtItemName=First|cmbModbusType=input register|cmbDataType=boolean "
        "array|txtAddress=1|cmbAccessRight=READ";
    DialogPlace place;
    work(place, "U.B; mnuAddItem",
         {{item + "|cmdGroup|txtNumbItems=|cmdOkNumber", invalid},
          {"txtNumbItems=1-2|cmdOkNumber", invalid},
          {"txtNumbItems=.|cmdOkNumber", invalid},
          {"txtNumbItems=32768|cmdOkNumber", again + failure(kOverflow, "cmdOkNumber_Click")[0]},
          {"txtNumbItems=0.5|cmdOkNumber", "hidden=frmInserimento|off="},
          {"cmdGroup|txtNumbItems=2.5|cmdOkNumber", "hidden=frmInserimento|off=|txtItemName=New_Item_2"},
          {"cmdAdd", "focus=txtItemName|txtItemName=New_Item_3"}});
    EXPECT_EQ(place.window.status[StatusField::Counts], "1 unit, 1 branch, 3 items");
    runDialog(place, "mnuAddItem", [&](FakeForm& form) {
        form.press("cmdGroup");
        place.pointer.shapes.clear();
        form.press("cmdOkNumber");
        EXPECT_EQ(place.pointer.shapes.front(), Pointer::Hourglass);
        form.press("cmdGroup");
        form.escape();  // leaves the panel only
        EXPECT_EQ(form.shown("open=yes|off=|hidden=frmInserimento"),
                  "open=yes|off=cmbBit txtElements|hidden=frmInserimento");
        form.escape();
        EXPECT_FALSE(form.open);
    });
}

TEST(ItemDialog, ARecordSharedByADraggedCopyIsEditedUnderTheNodesKey) {
    DialogPlace place;
    plant(place, {"U.B.Run", "U.C/"});
    play(place, {{"copy U.B.Run to U.C; edit U.B.Run: txtAddress=77", ""}});
    EXPECT_EQ(place.item("U.B.Run").nAddress(), 77);
    EXPECT_EQ(place.item("U.C.Run").nAddress(), 0);
}

}  // namespace

}  // namespace trevandix::testing
