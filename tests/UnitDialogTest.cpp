#include <gtest/gtest.h>

#include "DialogSteps.h"

namespace trevandix::testing {

namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;

const Fields kRtuDefaults{{"txtName", "New Plc 0"}, {"txtUI", "1"},      {"txtTimeout", "2000"},
                          {"txtAddress", ""},       {"txtPort", "COM1"}, {"cmbBaud", "9600"},
                          {"cmbParity", "NO"},      {"cmbData", "8"},    {"cmbStop", "1"},
                          {"cmbFlow", "NONE"},      {"txtSilent", "10"}};

void expectFields(FakeForm& form, const Fields& fields) {
    for (const auto& [control, text] : fields) EXPECT_EQ(form.text(control), text) << control;
}

void set(FakeForm& form, const Fields& fields) {
    for (const auto& [control, text] : fields) {
        const bool list = control == "cmbBaud" || control == "cmbParity" || control == "cmbFlow";
        list ? form.choose(control, text) : form.type(control, text);
    }
}

void addWith(Workplace& place, const Fields& fields) {
    place.click("");
    runDialog(place, "mnuAddPlc", [&](FakeForm& form) {
        set(form, fields);
        form.press("cmdOk");
        EXPECT_FALSE(form.open);  // a refused field closes the dialog too
    });
}

TEST(UnitDialog, OpensWithTheDefaultsOfTheInterfaceKind) {
    Workplace tcp;
    tcp.newConfiguration(kTcpIp);
    runDialog(tcp, "mnuAddPlc", [](FakeForm& form) {
        EXPECT_EQ(form.shape.caption, "Unit Properties");
        expectFields(form, {{"txtName", "New Plc 0"},
                            {"txtUI", "1"},
                            {"txtTimeout", "2000"},
                            {"txtAddress", "192.168.0.1"},
                            {"txtPort", ""},
                            {"cmbBaud", ""}});
        EXPECT_TRUE(form.enabled("txtAddress"));
        for (const char* off :
             {"txtPort", "cmbBaud", "cmbParity", "cmbData", "cmbStop", "cmbFlow", "txtSilent"}) {
            EXPECT_FALSE(form.enabled(off)) << off;
        }
        EXPECT_EQ(form.items("cmbBaud"), (Texts{"2400", "9600", "19200", "38400", "57600", "115200"}));
        EXPECT_EQ(form.items("cmbParity"), (Texts{"NO", "EVEN", "ODD"}));
        EXPECT_EQ(form.items("cmbData"), (Texts{"8", "7", "6", "5"}));
        EXPECT_EQ(form.items("cmbStop"), (Texts{"1", "2"}));
        EXPECT_EQ(form.items("cmbFlow"), (Texts{"NONE", "HARDWARE"}));
        form.press("cmdCancel");
    });
    EXPECT_TRUE(tcp.configuration.units.empty());
    Workplace rtu;
    rtu.newConfiguration(kRtu);
    runDialog(rtu, "mnuAddPlc", [](FakeForm& form) {
        expectFields(form, kRtuDefaults);
        EXPECT_FALSE(form.enabled("txtAddress"));
        EXPECT_TRUE(form.enabled("txtPort") && form.enabled("txtUI"));
    });
}

TEST(UnitDialog, AddsAUnitAndSelectsIt) {
    Workplace place;
    place.newConfiguration(kRtu);
    place.configuration.state.saved = true;
    addWith(place, {{"txtUI", "7"},
                    {"cmbBaud", "19200"},
                    {"cmbData", "7 bits"},
                    {"cmbStop", ""},
                    {"cmbFlow", "HARDWARE"},
                    {"cmbParity", "ODD"},
                    {"txtSilent", "2.5"},
                    {"txtTimeout", "3.5"}});
    EXPECT_EQ(place.messages.take(), Texts{});
    const clsPLC& unit = *place.configuration.units.at("New Plc 0");
    EXPECT_EQ(unit.getBaud(), 19200);
    EXPECT_EQ(unit.getDataBits(), 7);
    EXPECT_EQ(unit.getStopBits(), 0);
    EXPECT_EQ(unit.getSilent(), 2);
    EXPECT_EQ(unit.getTimeout(), 4);
    EXPECT_EQ(unit.getParity() + unit.getFlowCtl() + unit.getCom() + unit.getAddress(), "ODDHARDWARECOM1");
    const TreeNode* node = place.configuration.tree.selected();
    EXPECT_EQ(node->key().str(), "New Plc 0");
    EXPECT_EQ(node->look().selectedImage, Image::None);
    EXPECT_EQ(place.list.rows().at(0).subItems, Texts{"7"});
    EXPECT_EQ(place.configuration.state.unitCounter, 1);
    EXPECT_FALSE(place.configuration.state.saved);
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST(UnitDialog, FieldsAreCheckedInTheirOrder) {
    struct Case {
        std::string kind;
        Fields fields;
        std::string message;  // empty: accepted
    };
    const std::string tcp(kTcpIp);
    const std::string rtu(kRtu);
    const std::string invalid = "UI identifier is not valid.";
    const std::string range = "UI identifier must be between 0 and 254.";
    const std::string begin = "Invalid Port name. It must begin with \"COM\"";
    const std::string number = "Invalid Port name. Missing port number.";
    const std::vector<Case> cases{
        {tcp, {{"txtName", ""}, {"txtUI", "abc"}}, "Name field is empty."},
        {tcp, {{"txtUI", "abc"}, {"txtTimeout", ""}}, invalid},
        {tcp, {{"txtUI", ""}}, invalid},
        {tcp, {{"txtUI", "1 2"}}, invalid},
        {tcp, {{"txtUI", "255"}, {"txtTimeout", "x"}}, range},
        {tcp, {{"txtUI", "-1"}}, range},
        {tcp, {{"txtUI", "254"}}, ""},
        {tcp, {{"txtUI", "5"}, {"txtTimeout", "x"}}, "UI already existing. Please use a different one"},
        {tcp, {{"txtTimeout", ""}, {"txtAddress", ""}}, "Timeout value is not valid."},
        {tcp, {{"txtAddress", ""}}, "Address field is empty."},
        {tcp, {{"txtAddress", "999.1"}}, ""},
        {rtu, {{"txtPort", ""}, {"txtSilent", ""}}, "Port name field empty."},
        {rtu, {{"txtPort", "com3"}}, begin},
        {rtu, {{"txtPort", "CO"}}, begin},
        {rtu, {{"txtPort", "COM"}}, number},
        {rtu, {{"txtPort", "COMx"}, {"txtSilent", ""}}, number},
        {rtu, {{"txtPort", "COM12"}}, ""},
        {rtu, {{"txtSilent", ""}}, "Silent interval field empty."},
        {rtu, {{"txtSilent", "1ms"}, {"cmbBaud", "2400"}}, "Invalid Silent interval."},
        {rtu,
         {{"cmbBaud", "2400"}, {"cmbData", "7"}},
         "Plc Boiler has the same port but different Baud Rate"},
        {rtu, {{"cmbData", "7"}, {"cmbStop", "2"}}, "Plc Boiler has the same port but different Data Bits"},
        {rtu,
         {{"cmbStop", "2"}, {"cmbParity", "ODD"}},
         "Plc Boiler has the same port but different Stop Bits"},
        {rtu,
         {{"cmbParity", "ODD"}, {"cmbFlow", "HARDWARE"}},
         "Plc Boiler has the same port but different Parity"},
        {rtu, {{"cmbFlow", "HARDWARE"}}, "Plc Boiler has the same port but different Flow Control"},
        {rtu, {{"cmbData", "8.0"}, {"txtTimeout", "1"}, {"txtSilent", "99"}}, ""},
        {rtu, {{"txtPort", "COM2"}, {"cmbBaud", "2400"}}, ""},
    };
    for (const Case& c : cases) {
        Workplace place;
        place.newConfiguration(c.kind);
        addUnit(place, "Boiler", "5");
        ASSERT_EQ(place.messages.take(), Texts{});
        addWith(place, c.fields);
        EXPECT_EQ(place.messages.take(), c.message.empty() ? Texts{} : Texts{c.message});
        EXPECT_EQ(place.configuration.units.size(), c.message.empty() ? 2U : 1U) << c.message;
    }
}

TEST(UnitDialog, ADuplicateNameOrAFailureKeepsItOpen) {
    Workplace place;
    place.newConfiguration(kTcpIp);
    addUnit(place, "A", "1");
    place.click("");
    runDialog(place, "mnuAddPlc", [&](FakeForm& form) {
        set(form, {{"txtName", "A"}, {"txtUI", "2"}});
        form.press("cmdOk");
        EXPECT_EQ(place.messages.take(), Texts{"Name already existing. Please use a different name"});
        EXPECT_TRUE(form.open);
        set(form, {{"txtName", "a"}, {"txtTimeout", "3e9"}});
        form.press("cmdOk");
        EXPECT_EQ(place.messages.take(), Texts{" Error n. 6  Overflow in cmdOk_Click"});
        EXPECT_TRUE(form.open);
        set(form, {{"txtTimeout", "30"}});
        form.press("cmdOk");  // another case is another name
    });
    EXPECT_EQ(place.configuration.units.size(), 2U);
    // The tree has one name space for units, data types and the folder.
    addUnit(place, "ModBus", "3");
    EXPECT_EQ(place.messages.take(),
              Texts{" Error n. 35602  Key is not unique in collection in mnuAddPlc_Click"});
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST(UnitDialog, EditsTheUnitAndKeepsItsIdentifier) {
    Workplace place;
    place.openText(
        fileText({}, {"\t\t<PLC name=\"A\" address=\"h\" id=\"9\" timeout=\"5\"><tags></tags></PLC>",
                      "\t\t<PLC name=\"B\" address=\"i\" id=\"9\" timeout=\"6\"><tags></tags></PLC>"}));
    editDialog(place, "A", [&](FakeForm& form) {
        expectFields(form, {{"txtName", "A"}, {"txtUI", "9"}, {"txtTimeout", "5"}, {"txtAddress", "h"}});
        set(form, {{"txtAddress", "j"}});
        form.press("cmdOk");  // the file holds the identifier twice; this unit may keep it
    });
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.configuration.units.at("A")->getAddress(), "j");
    EXPECT_EQ(place.configuration.units.last()->getName(),
              "A");  // an edited unit goes to the end of the file
    EXPECT_FALSE(place.configuration.state.saved);
    editDialog(place, "A", [&](FakeForm& form) {
        set(form, {{"txtName", "B"}, {"txtUI", "10"}});
        form.press("cmdOk");
        EXPECT_TRUE(form.open);
        EXPECT_EQ(place.messages.take(), Texts{"Name already existing. Please use a different name"});
        set(form, {{"txtName", "C"}});
        form.press("cmdOk");
    });
    EXPECT_EQ(place.configuration.tree.selected()->key().str(), "C");
    EXPECT_EQ(place.node("C").text(), "C");
    EXPECT_EQ(place.list.rows().at(0).text, "C");
    EXPECT_EQ(disagreements(place.configuration), Texts{});
}

TEST(UnitDialog, ARenamedRtuUnitIsComparedWithItsOwnOldSelf) {
    Workplace place;
    place.newConfiguration(kRtu);
    addUnit(place, "Old", "1");
    place.configuration.units.at("Old")->setSilent(12);
    editDialog(place, "Old", [&](FakeForm& form) {
        expectFields(form, {{"txtPort", "COM1"},
                            {"cmbBaud", "9600"},
                            {"cmbParity", "NO"},
                            {"cmbData", "8"},
                            {"cmbStop", "1"},
                            {"cmbFlow", "NONE"},
                            {"txtSilent", "12"}});
        set(form, {{"txtName", "New"}, {"cmbBaud", "19200"}});
        form.press("cmdOk");
        EXPECT_FALSE(form.open);
    });
    EXPECT_EQ(place.messages.take(), Texts{"Plc Old has the same port but different Baud Rate"});
    EXPECT_EQ(place.configuration.units.at("Old")->getBaud(), 9600);
}

}  // namespace

}  // namespace trevandix::testing
