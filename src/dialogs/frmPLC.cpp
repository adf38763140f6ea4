#include "dialogs/frmPLC.h"

#include <array>
#include <span>
#include <vector>

namespace trevandix {

namespace {

constexpr std::array kControls{
    ControlSpec{ControlKind::Text, "txtName", "Unit Name"}.describedAs(
        "First part of the tags that OPC clients ask for"),
    ControlSpec{ControlKind::Text, "txtAddress", "IP Address"}.describedAs("Network address of the device"),
    ControlSpec{ControlKind::Text, "txtUI", "ModBus Unit Identifier", "", Place::NextRow, 8}.describedAs(
        "Modbus address of the device, another one for every unit"),
    ControlSpec{ControlKind::Text, "txtTimeout", "Communication Timeout (ms)", "", Place::NextRow, 8}
        .describedAs("How long an answer is waited for, in milliseconds"),
    ControlSpec{ControlKind::Text, "txtPort", "Port Name (COMx)", "", Place::NextRow, 8}.describedAs(
        "Serial port that the device hangs on"),
    ControlSpec{ControlKind::Choice, "cmbBaud", "Baud rate (b/s)", "", Place::NextRow, 12}.describedAs(
        "Bits in a second"),
    ControlSpec{ControlKind::Choice, "cmbParity", "Parity", "", Place::NextRow, 12}.describedAs(
        "Check bit of every character"),
    ControlSpec{ControlKind::Combo, "cmbData", "Data e Stop bits", "", Place::NextRow, 6}.describedAs(
        "Data bits of a character"),
    ControlSpec{ControlKind::Combo, "cmbStop", "", "", Place::SameRow, 6}.describedAs(
        "Stop bits behind a character"),
    ControlSpec{ControlKind::Choice, "cmbFlow", "Flow Control", "", Place::NextRow, 12}.describedAs(
        "How the line holds the sender back"),
    ControlSpec{ControlKind::Text, "txtSilent", "Silent interval (ms)", "", Place::NextRow, 8}.describedAs(
        "Pause between two telegrams, in milliseconds"),
    ControlSpec{ControlKind::Button, "cmdOk", "Ok", "", Place::ButtonRow}.describedAs(
        "Takes over the unit and closes"),
    ControlSpec{ControlKind::Button, "cmdCancel", "Quit", "", Place::ButtonRow}.describedAs(
        "Closes without a change"),
};
constexpr FormSpec kForm{"frmPLC", "Unit Properties", kControls, "cmdOk", "cmdCancel", "txtName"};

constexpr std::array<std::string_view, 7> kRtuFields{"txtPort", "cmbBaud", "cmbParity", "cmbData",
                                                     "cmbStop", "cmbFlow", "txtSilent"};

}  // namespace

std::optional<clsPLC> frmPLC::showToAdd() {
    show(nullptr);
    return added_;
}

void frmPLC::show(std::shared_ptr<const clsPLC> edited) {
    edited_ = std::move(edited);
    added_.reset();
    form_ = context_.forms.create(kForm);
    connect<frmPLC>(*form_, context_.messages, *this,
                    {{"cmdOk", "cmdOk_Click", &frmPLC::cmdOk_Click},
                     {"cmdCancel", "cmdCancel_Click", &frmPLC::cmdCancel_Click}});
    reportErrors(context_.messages, "Form_Load", [&] { Form_Load(); });
    form_->showModal();
}

void frmPLC::Form_Load() {
    fillLists();
    enableFields();
    edited_ != nullptr ? loadRecord() : proposeUnit();
}

void frmPLC::fillLists() {
    const auto fill = [&](std::string_view list, std::span<const std::string_view> choices) {
        form_->setItems(list, std::vector<std::string>(choices.begin(), choices.end()));
    };
    fill("cmbBaud", kBaudRates);
    fill("cmbParity", kParities);
    fill("cmbData", kDataBits);
    fill("cmbStop", kStopBits);
    fill("cmbFlow", kFlowControls);
}

void frmPLC::enableFields() {
    const std::string& kind = context_.configuration.state.interfaceKind;
    for (const std::string_view field : kRtuFields) form_->setEnabled(field, kind != kTcpIp);
    form_->setEnabled("txtAddress", kind != kRtu);
}

void frmPLC::proposeUnit() {
    const EditingState& state = context_.configuration.state;
    form_->setText("txtName", "New Plc " + std::to_string(state.unitCounter));
    form_->setText("txtUI", "1");
    form_->setText("txtTimeout", "2000");
    if (state.interfaceKind == kTcpIp) form_->setText("txtAddress", "192.168.0.1");
    if (state.interfaceKind != kRtu) return;
    form_->setText("txtPort", "COM1");
    form_->setText("cmbBaud", "9600");
    form_->setText("cmbParity", "NO");
    form_->setText("cmbData", "8");
    form_->setText("cmbStop", "1");
    form_->setText("txtSilent", "10");
    form_->setText("cmbFlow", "NONE");
}

void frmPLC::loadRecord() {
    const std::string& kind = context_.configuration.state.interfaceKind;
    form_->setText("txtName", edited_->getName());
    form_->setText("txtUI", std::to_string(edited_->getUI()));
    form_->setText("txtTimeout", std::to_string(edited_->getTimeout()));
    if (kind == kTcpIp) form_->setText("txtAddress", edited_->getAddress());
    if (kind != kRtu) return;
    form_->setText("txtPort", edited_->getCom());
    chooseStored(*form_, "cmbBaud", std::to_string(edited_->getBaud()));
    chooseStored(*form_, "cmbParity", edited_->getParity());
    form_->setText("cmbData", std::to_string(edited_->getDataBits()));
    form_->setText("cmbStop", std::to_string(edited_->getStopBits()));
    form_->setText("txtSilent", std::to_string(edited_->getSilent()));
    chooseStored(*form_, "cmbFlow", edited_->getFlowCtl());
}

UnitFields frmPLC::fields() const {
    const auto text = [&](std::string_view control) { return form_->text(control); };
    return {.name = text("txtName"),
            .identifier = text("txtUI"),
            .timeout = text("txtTimeout"),
            .address = text("txtAddress"),
            .port = text("txtPort"),
            .baud = text("cmbBaud"),
            .parity = text("cmbParity"),
            .dataBits = text("cmbData"),
            .stopBits = text("cmbStop"),
            .flowControl = text("cmbFlow"),
            .silent = text("txtSilent")};
}

bool frmPLC::CheckFields(const UnitFields& unit) {
    return passes(refusal(unit, context_.configuration, edited_.get()), context_.messages);
}

void frmPLC::cmdOk_Click() {
    const UnitFields unit = fields();
    if (!CheckFields(unit)) {
        form_->close();  // unlike the other dialogs, which stay open
        return;
    }
    Configuration& configuration = context_.configuration;
    if (!CheckDuplNames(NodeTag::Plc, unit.name, configuration.tree, edited_ != nullptr, context_.messages))
        return;
    clsPLC record;
    record.SetByForm(unit, configuration.state.interfaceKind);
    if (edited_ != nullptr) {
        changeUnit(std::move(record));
    } else {
        requireFree(configuration.units, record.sKey());
        added_ = std::move(record);
    }
    configuration.setSaved(false);
    form_->close();
}

void frmPLC::changeUnit(clsPLC record) {
    Configuration& configuration = context_.configuration;
    TreeNode& node = *configuration.tree.selected();
    configuration.replaceUnit(node, std::move(record));
    configuration.tree.select(&node);
}

void frmPLC::cmdCancel_Click() {
    form_->close();
}

}  // namespace trevandix
