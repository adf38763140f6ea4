#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

const Fields kRtuDefaults{{"txtName", "New Plc 0"}, {"txtUI", "1"},      {"txtTimeout", "2000"},
                          {"txtAddress", ""},       {"txtPort", "COM1"}, {"cmbBaud", "9600"},
                          {"cmbParity", "NO"},      {"cmbData", "8"},    {"cmbStop", "1"},
                          {"cmbFlow", "NONE"},      {"txtSilent", "10"}};

void addWith(Workplace& place, const Fields& fields) {
    place.click("");
    runDialog(place, "mnuAddPlc", [&](FakeForm& form) {
        confirmed(fields)(form);
        EXPECT_FALSE(form.open);  // a refused field closes the dialog too
    });
}

TEST(UnitDialog, OpensWithTheDefaultsOfTheInterfaceKind) {
    for (const std::string_view kind : {kTcpIp, kRtu}) {
        const bool rtu = kind == kRtu;
        Workplace place;
        place.newConfiguration(kind);
        runDialog(place, "mnuAddPlc", [&](FakeForm& form) {
            const Fields tcpDefaults{{"txtName", "New Plc 0"},      {"txtUI", "1"},  {"txtTimeout", "2000"},
                                     {"txtAddress", "192.168.0.1"}, {"txtPort", ""}, {"cmbBaud", ""}};
            const Fields& defaults = rtu ? kRtuDefaults : tcpDefaults;
            EXPECT_EQ(form.shown(defaults), defaults);
            EXPECT_EQ(form.enabled("txtAddress"), !rtu);
            for (const char* serial :
                 {"txtPort", "cmbBaud", "cmbParity", "cmbData", "cmbStop", "cmbFlow", "txtSilent"}) {
                EXPECT_EQ(form.enabled(serial), rtu) << serial;
            }
            EXPECT_EQ(form.items("cmbBaud"), (Texts{"2400", "9600", "19200", "38400", "57600", "115200"}));
            form.press("cmdCancel");
        });
        EXPECT_TRUE(place.configuration.units.empty());
    }
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
    const std::vector<int> numbers{unit.getBaud(), unit.getDataBits(), unit.getStopBits(), unit.getSilent(),
                                   unit.getTimeout()};
    EXPECT_EQ(numbers, (std::vector{19200, 7, 0, 2, 4}));
    EXPECT_EQ(unit.getParity() + unit.getFlowCtl() + unit.getCom() + unit.getAddress(), "ODDHARDWARECOM1");
    EXPECT_EQ(place.selectedKey(), "New Plc 0");
    EXPECT_EQ(place.node("New Plc 0").look().selectedImage, Image::None);
    EXPECT_EQ(place.list.rows().at(0).subItems, Texts{"7"});
    EXPECT_EQ(place.configuration.state.unitCounter, 1);
    EXPECT_FALSE(place.configuration.state.saved);
}

TEST(UnitDialog, FieldsAreCheckedInTheirOrder) {
    struct Case {
        std::string_view kind;
        Fields fields;
        std::string message;  // empty: accepted
    };
    const std::string invalid = "UI identifier is not valid.";
    const std::string range = "UI identifier must be between 0 and 254.";
    const std::string begin = "Invalid Port name. It must begin with \"COM\"";
    const std::string number = "Invalid Port name. Missing port number.";
    const std::string differs = "Plc Boiler has the same port but different ";
    const std::vector<Case> cases{
        {kTcpIp, {{"txtName", ""}, {"txtUI", "abc"}}, "Name field is empty."},
        {kTcpIp, {{"txtUI", "abc"}, {"txtTimeout", ""}}, invalid},
        {kTcpIp, {{"txtUI", ""}}, invalid},
        {kTcpIp, {{"txtUI", "255"}, {"txtTimeout", "x"}}, range},
        {kTcpIp, {{"txtUI", "-1"}}, range},
        {kTcpIp, {{"txtUI", "254"}}, ""},
        {kTcpIp, {{"txtUI", "5"}, {"txtTimeout", "x"}}, "UI already existing. Please use a different one"},
        {kTcpIp, {{"txtTimeout", ""}, {"txtAddress", ""}}, "Timeout value is not valid."},
        {kTcpIp, {{"txtAddress", ""}}, "Address field is empty."},
        {kTcpIp, {{"txtAddress", "999.1"}}, ""},
        {kRtu, {{"txtPort", ""}, {"txtSilent", ""}}, "Port name field empty."},
        {kRtu, {{"txtPort", "com3"}}, begin},
        {kRtu, {{"txtPort", "COM"}}, number},
        {kRtu, {{"txtPort", "COMx"}, {"txtSilent", ""}}, number},
        {kRtu, {{"txtPort", "COM12"}}, ""},
        {kRtu, {{"txtSilent", ""}}, "Silent interval field empty."},
        {kRtu, {{"txtSilent", "1ms"}, {"cmbBaud", "2400"}}, "Invalid Silent interval."},
        {kRtu, {{"cmbBaud", "2400"}, {"cmbData", "7"}}, differs + "Baud Rate"},
        {kRtu, {{"cmbData", "7"}, {"cmbStop", "2"}}, differs + "Data Bits"},
        {kRtu, {{"cmbStop", "2"}, {"cmbParity", "ODD"}}, differs + "Stop Bits"},
        {kRtu, {{"cmbParity", "ODD"}, {"cmbFlow", "HARDWARE"}}, differs + "Parity"},
        {kRtu, {{"cmbFlow", "HARDWARE"}}, differs + "Flow Control"},
        {kRtu, {{"cmbData", "8.0"}, {"txtTimeout", "1"}, {"txtSilent", "99"}}, ""},
        {kRtu, {{"txtPort", "COM2"}, {"cmbBaud", "2400"}}, ""},
    };
    for (const Case& c : cases) {
        Workplace place;
        place.newConfiguration(c.kind);
        addUnit(place, "Boiler", "5");
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
        expectRefusal(place, form, {{"txtName", "A"}, {"txtUI", "2"}}, kNameTaken);
        expectRefusal(place, form, {{"txtName", "a"}, {"txtTimeout", "3e9"}},
                      failure(kOverflow, "cmdOk_Click"));
        confirmed({{"txtTimeout", "30"}})(form);  // another case is another name
    });
    EXPECT_EQ(place.configuration.units.size(), 2U);
    // The tree has one name space for units, data types and the folder.
    addUnit(place, "ModBus", "3");
    EXPECT_EQ(place.messages.take(), failure(kKeyNotUnique, "mnuAddPlc_Click"));
}

TEST(UnitDialog, EditsTheUnitAndKeepsItsIdentifier) {
    Workplace place;
    place.openText(
        fileText({}, {"\t\t<PLC name=\"A\" address=\"h\" id=\"9\" timeout=\"5\"><tags></tags></PLC>",
                      "\t\t<PLC name=\"B\" address=\"i\" id=\"9\" timeout=\"6\"><tags></tags></PLC>"}));
    editDialog(place, "A", [&](FakeForm& form) {
        const Fields fields{{"txtName", "A"}, {"txtUI", "9"}, {"txtTimeout", "5"}, {"txtAddress", "h"}};
        EXPECT_EQ(form.shown(fields), fields);
        // The file holds the identifier twice; this unit may keep it.
        confirmed({{"txtAddress", "j"}})(form);
    });
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.configuration.units.last()->getAddress(), "j");  // it goes to the end of the file
    EXPECT_FALSE(place.configuration.state.saved);
    editDialog(place, "A", [&](FakeForm& form) {
        expectRefusal(place, form, {{"txtName", "B"}, {"txtUI", "10"}}, kNameTaken);
        confirmed({{"txtName", "C"}})(form);
    });
    EXPECT_EQ(place.selectedKey() + place.node("C").text() + place.list.rows().at(0).text, "CCC");
}

TEST(UnitDialog, OnlyARenamedRtuUnitIsComparedWithItsOwnOldSelf) {
    Workplace place;
    place.newConfiguration(kRtu);
    addWith(place, {{"txtSilent", "12"}});
    editDialog(place, "New Plc 0", [&](FakeForm& form) {
        Fields fields = kRtuDefaults;
        fields.back().second = "12";
        EXPECT_EQ(form.shown(fields), fields);
        confirmed({{"txtName", "New"}, {"cmbBaud", "19200"}})(form);
        EXPECT_FALSE(form.open);
    });
    EXPECT_EQ(place.messages.take(), Texts{"Plc New Plc 0 has the same port but different Baud Rate"});
    editDialog(place, "New Plc 0", confirmed({{"cmbBaud", "2400"}}));
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.configuration.units.at("New Plc 0")->getBaud(), 2400);
}

}  // namespace

}  // namespace trevandix::testing
