// Tests the four property dialogs: proposed values, checks, adding and editing.
#include <gtest/gtest.h>

#include <array>

#include "Plant.h"
#include "model/ValueTypes.h"

namespace trevandix::testing {

namespace {

const std::string kNoCom = "Invalid Port name. It must begin with \"COM\"";
const std::string kSerialOff = "|off=txtPort cmbBaud cmbParity cmbData cmbStop cmbFlow txtSilent";

/// A unit U with a branch B, and all data types except coil.
struct DialogPlace : Workplace {
    explicit DialogPlace(std::string_view kind = kTcpIp) {
        newConfiguration(kind);
        const std::string type = "; ModBus; mnuAddMBType: cmbMBType=";
        play(*this, {{"top; mnuAddPlc: txtName=U|txtUI=9; mnuAddBranch: txtBranchName=B" + type +
                          "input status" + type + "input register" + type + "holding register",
                      "unsaved"}});
        configuration.setSaved(true);
    }
    /// Each row: the fields entered before Ok, and the expected message (empty: accepted). `refused` is what
    /// the dialog shows after a refusal.
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

TEST(Dialogs, EditingShowsWhatWasEntered) {
    for (const auto& [parent, command, proposed, entered, seen, edited, shown] :
         std::vector<std::array<std::string, 7>>{
             {"top", "mnuAddPlc",
              "txtName=New Plc 1|txtUI=1|txtTimeout=2000|txtAddress=192.168.0.1|txtPort=" + kSerialOff,
              "txtName=A|txtUI=7|txtTimeout=3.5|txtAddress=host", "list A: A", "A",
              "txtName=A|txtUI=7|txtTimeout=4|txtAddress=host" + kSerialOff},
             {"top", "mnuAddPlc",
              "txtTimeout=2000|txtAddress=|txtPort=COM1|cmbBaud=9600|cmbParity=NO|cmbData=8|cmbStop=1|"
              "cmbFlow=NONE|txtSilent=10|off=txtAddress",
              "txtPort=COM3|cmbBaud=19200|cmbParity=ODD|cmbData=7 "
              "bits|cmbStop=2|cmbFlow=HARDWARE|txtSilent=2.5",
              "list New Plc 1: New Plc 1", "New Plc 1",
              "txtPort=COM3|cmbBaud=19200|cmbParity=ODD|cmbData=7|cmbStop=2|cmbFlow=HARDWARE|txtSilent=2|"
              "off=txtAddress"},
             {"U", "mnuAddBranch", "txtBranchName=NewBranch1", "txtBranchName=a b", "list U.a b: U", "U.a b",
              "txtBranchName=a b"},
             {"ModBus", "mnuAddMBType", "cmbMBType=|txtReadCode=|off=txtSingleCode",
              "cmbMBType=coil|txtReadCode=3.5|txtWriteCode=2.5|txtSingleCode=7",
              "list ModBus: input status input register holding register coil", "coil",
              "cmbMBType=coil|txtReadCode=4|txtWriteCode=2|txtSingleCode=7|off="},
             {"U.B", "mnuAddItem",
              "txtItemName=New Item 0|cmbModbusType=|txtAddress=|cmbBit=0|txtElements=0|off=cmbBit "
              "txtElements",
              "txtItemName=I a.b|cmbModbusType=holding register|cmbDataType=boolean array|txtComment=pump|"
              "txtAddress=40|cmbBit=3|txtElements=8|cmbAccessRight=WRITE",
              "list U.B: Iab", "U.B.Iab",  // the key filter dropped space and dot
              "cmbModbusType=holding register|cmbDataType=boolean "
              "array|txtComment=pump|txtAddress=40|cmbBit=3|"
              "txtElements=8|cmbAccessRight=WRITE|cmdOk=Confirm Modify|off=cmdAdd cmdGroup"},
         }) {
        SCOPED_TRACE(edited);
        DialogPlace place(edited == "New Plc 1" ? kRtu : kTcpIp);
        const Texts nodes = fileContents(place.configuration);
        const int counters = place.counters();
        work(place, parent + "; " + command, {{"", proposed}, {entered + "|cmdCancel", "open=no"}});
        EXPECT_EQ(fileContents(place.configuration), nodes);
        play(place, {{"", "saved"}});
        work(place, parent + "; " + command, {{entered + "|cmdOk", "open=no"}});
        play(place, {{"", seen + " | unsaved"}});
        EXPECT_EQ(place.counters(), counters + 1);
        place.configuration.setSaved(true);
        work(place, "edit " + edited, {{"", shown}, {"cmdCancel", "open=no"}});
        play(place, {{"", "saved"}});
    }
}

TEST(Dialogs, UnitFieldsAreChecked) {
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
                                   {"txtTimeout=30", ""}});  // names are case-sensitive
    // Units, data types and the ModBus folder share one name space in the tree.
    play(tcpIp, {{"top; mnuAddPlc: txtName=ModBus|txtUI=3",
                  "said " + failure(kKeyNotUnique, "mnuAddPlc_Click")[0]}});

    DialogPlace rtu(kRtu);
    rtu.check("top; mnuAddPlc",
              {{"txtPort=|txtSilent=", "Port name field empty."},
               {"txtPort=com3", kNoCom},
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
    // The port check skips the edited unit itself, unless it is renamed.
    play(rtu, {{"edit U: txtPort=COM4|cmbBaud=19200", ""},
               {"edit U: cmbBaud=2400", ""},
               {"edit U: txtName=V|cmbBaud=9600", "said " + differs + "Baud Rate"}});
}

TEST(Dialogs, ItemFieldsAreChecked) {
    const std::string range = "Memory address field is not valid. It must be between 0 and 65535.";
    DialogPlace place;
    plant(place, {"U.B.Other"});
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
    play(place, {{"", "list U.B: I Other"}});  // updated when the dialog closes
}

// Files may contain values that a dialog does not offer. Ok keeps them or reports what is invalid.
TEST(Dialogs, OkKeepsUnusualValuesThatNobodyEdited) {
    const std::string unusual = " a  \"b\"\r\n<c>\t& ";
    using Units = std::vector<std::pair<void (*)(clsPLC&), std::string>>;
    const Units tcpIp{{[](clsPLC& u) { u.setAddress(" a  \"b\"\r\n<c>\t& "), u.setTimeout(-5); }, ""},
                      {[](clsPLC& u) { u.setUI(9); }, ""},  // also the identifier of another unit
                      {[](clsPLC& u) { u.setUI(255); }, "UI identifier must be between 0 and 254."},
                      {[](clsPLC& u) { u.setAddress(""); }, "Address field is empty."}};
    const Units rtu{{[](clsPLC& u) {
                         u.setBaud(1200), u.setParity("None"), u.setStopBits(3), u.setDataBits(9);
                         u.setFlowCtl("XON"), u.setSilent(-1), u.setCom("COM 2 ");
                     },
                     ""},
                    {[](clsPLC& u) { u.setParity(" a\tb "), u.setFlowCtl("none"), u.setBaud(-1); }, ""},
                    {[](clsPLC& u) { u.setParity(""), u.setFlowCtl(""), u.setBaud(0); }, ""},
                    {[](clsPLC& u) { u.setCom("com3"); }, kNoCom},
                    {[](clsPLC& u) { u.setCom(""); }, "Port name field empty."}};
    for (const auto& [kind, units] : {std::pair(kTcpIp, tcpIp), {kRtu, rtu}}) {
        for (const auto& [set, message] : units) {
            DialogPlace place(kind);
            clsPLC& unit = plantUnit(place.configuration, unusual, "host");
            unit.setCom("COM7");
            set(unit);
            const std::string before = unit.GetXmlTag(kind);
            play(place, {{"edit " + unusual + ": ", message.empty() ? "" : "said " + message}});
            EXPECT_EQ(place.configuration.units.at(unusual)->GetXmlTag(kind), before);
        }
    }

    const std::string range = "Memory address field is not valid. It must be between 0 and 65535.";
    const auto told = [](const clsItem& item) {
        return item.sDataType() + "|" + item.sAccessRight() + "|" + std::to_string(item.nAddress()) + "|" +
               std::to_string(item.nBitNumber()) + "|" + std::to_string(item.nElements());
    };
    // Each row: type, access right, address, bit and elements; the expected message; the values after Ok if
    // they differ.
    for (const auto& [before, message, after] : std::vector<std::array<std::string, 3>>{
             {"holding register:64 bit|rw|0|0|0"},
             {"holding register:array|READ|0|0|3"},
             {"my table:string|READ|0|0|32767"},
             {"my table:a \"b\"|READ|0|0|0"},
             {"input register:boolean array|READWRITE|0|99|0"},
             {"holding register:boolean|READ|0|-5|0"},
             {"holding register:string|READ|0|3|4", "", "holding register:string|READ|0|0|4"},
             {"holding register:64 bit|READ|0|3|4", "", "holding register:64 bit|READ|0|0|0"},
             {"coil:boolean array|READ|0|3|4", "", "coil:boolean array|READ|0|0|4"},
             {"coil:string|READ|0|3|4", "", "coil:boolean|READ|0|0|0"},  // coils are always boolean
             {"my table:string|READ|0|0|-3", "Number of elements field is not valid."},
             {"holding register:string|READ|-7|0|0", range},
             {"my table:boolean|READ|70000|99|9", range},
             {"my table|READ|0|0|0", "Data Type field is empty."},
             {":string|READ|0|0|0", "ModBus Type field is empty."},
             {"holding register:string||0|0|0", "Access Rights field is empty."}}) {
        DialogPlace place;
        clsItem& item = plantItem(place.configuration, place.node("U.B"), unusual);
        const Texts fields = split(before);
        item.sComment(unusual);
        item.sDataType(fields[0]);
        item.sAccessRight(fields[1]);
        item.nAddress(std::stoi(fields[2]));
        item.nBitNumber(static_cast<std::int16_t>(std::stoi(fields[3])));
        item.nElements(static_cast<std::int16_t>(std::stoi(fields[4])));
        play(place, {{"edit U.B." + unusual + ": ", message.empty() ? "" : "said " + message}});
        const clsItem& now = place.item("U.B." + unusual);
        EXPECT_EQ(told(now) + now.sComment(), (after.empty() ? before : after) + unusual);
    }

    DialogPlace place;
    clsModBusType type;
    type.setName("my input");  // input tables get no write code
    type.setReadCode(255);
    type.setWriteCode(255);
    place.configuration.addDataType(type);
    const std::string other = place.configuration.dataTypes.at("holding register")->GetXmlTag();
    play(place,
         {{"edit my input: ; edit holding register: ; U; mnuAddBranch: txtBranchName=; edit U.: ", ""}});
    EXPECT_EQ(place.configuration.dataTypes.at("my input")->GetXmlTag(),
              "\t\t<DATATYPE name=\"\" readcode = \"255\" writecode=\"0\" singlewrcode=\"0\"/>");
    EXPECT_EQ(place.configuration.dataTypes.at("holding register")->GetXmlTag(), other);
    EXPECT_EQ(place.configuration.branches.at("U.")->sName(), "");
}

TEST(Dialogs, DataTypeFieldsAreChecked) {
    DialogPlace place;
    place.check("ModBus; mnuAddMBType",
                {{"", "Check Read Function code"},
                 // A type without a name cannot have a node.
                 {"txtReadCode=1|txtWriteCode=1", failure(kInvalidCall, "cmdOk_Click")[0]},
                 {"cmbMBType=holding register|txtReadCode=x", "ModBus type already existing"},
                 {"cmbMBType=coil|txtReadCode=x|txtWriteCode=x", "Check Read Function code"},
                 {"txtReadCode=+3e0|txtSingleCode=", "Check Write Function code"},
                 {"txtWriteCode=16", "Check Single Write Function code"},
                 {"txtSingleCode=300", failure(kOverflow, "cmdOk_Click")[0]},
                 {"txtSingleCode=6", ""}});
    EXPECT_EQ(place.list.rows().size(), 4U);
    // Without the ModBus folder, a new type is removed again.
    play(place, {{"edit coil: cmbMBType=input status", "said " + failure(kKeyInCollection, "cmdOk_Click")[0]},
                 {"drag ModBus to U; U.B; mnuAddMBType: cmbMBType=coil",
                  "said " + failure("35601  Element not found", "mnuAddMBType_Click")[0]}});
    EXPECT_EQ(place.configuration.dataTypes.size(), 3U);
}

TEST(Dialogs, BranchNamesAreChecked) {
    DialogPlace place;
    plant(place, {"U./"});
    plantBranch(place.configuration, place.node("U"), "a.b");
    plant(place, {"U.Run"});
    place.check("U; mnuAddBranch", {{"txtBranchName=a.b", kNameTaken[0]}, {"txtBranchName=", kNameTaken[0]}});
    const std::string notUnique = "said " + failure(kKeyNotUnique, "mnuAddBranch_Click")[0];
    play(place,
         {// A sibling item has the same key: the name check passes, the tree refuses.
          {"U; mnuAddBranch: txtBranchName=Run", notUnique},
          // Under U.a, "b" has the key of "a.b" under U.
          {"U; mnuAddBranch: txtBranchName=a", ""},
          {"U.a; mnuAddBranch: txtBranchName=b", "said " + failure(kKeyInCollection, "cmdOk_Click")[0]}});
    behindTheDoor(place.configuration.state).branchCounter = 32767;
    play(place, {{"U; mnuAddBranch: txtBranchName=last",
                  "list U.last: U | said " + failure(kOverflow, "mnuAddBranch_Click")[0]}});
}

TEST(Dialogs, RenamedDataTypeKeepsItsNode) {
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
    // A node that lost its record gets the new record.
    play(place, {{"ModBus; mnuAddMBType: cmbMBType=holding register",
                  "tree ModBus: holding register input register input status"}});
    work(place, "edit holding register", {{"", "txtReadCode=3"}});
}

TEST(ItemDialog, TableLimitsTypesAndRightsAndTypeEnablesBitAndElements) {
    DialogPlace place;
    plant(place, {"ModBus.coil", "ModBus.my register", "U.B.I"});
    place.item("U.B.I").sDataType("holding register:array");
    place.item("U.B.I").sAccessRight("rw");
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
    // The record's unusual values are offered for its own table only.
    work(place, "edit U.B.I",
         {{"cmbModbusType=input register", "cmbDataType.count=15|cmbAccessRight.count=1"},
          {"cmbModbusType=holding register", "cmbDataType.count=16|cmbAccessRight.count=4"},
          {"cmbDataType=array|cmbAccessRight=rw", "open=yes"}});
}

TEST(ItemDialog, AddressAdvancesByTheSizeOfTheValue) {
    const std::string hr = "holding register";
    struct Case {
        std::string table, labels;
        ItemPlace from;
        int elements;
        ItemPlace to;
    };
    for (const auto& [table, labels, from, elements, to] : std::vector<Case>{
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
         }) {
        for (const std::string& label : split(labels))
            EXPECT_EQ(advanced(from, table, label, elements), to) << table << ':' << label;
    }
}

// In U.B the name is taken; in U.C the name is free but a branch has the key.
TEST(ItemDialog, GroupStopsAtTheFirstRefusedItem) {
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

TEST(ItemDialog, GroupPanelAcceptsOnlyNumbers) {
    const std::string again = "hidden=|off=frmMain | said ";  // the panel stays open
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
        place.pointer.shapes.clear();
        form.fill("cmdGroup|cmdOkNumber");
        EXPECT_EQ(place.pointer.shapes.front(), Pointer::Hourglass);
    });
}

}  // namespace

}  // namespace trevandix::testing
