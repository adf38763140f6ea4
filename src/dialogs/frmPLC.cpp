#include "dialogs/frmPLC.h"

#include <array>
#include <span>
#include <vector>

#include "model/UnitChoices.h"

namespace trevandix {

namespace {

struct Row {
    ControlSpec control;
    std::string UnitFields::*text = nullptr;  ///< nullptr for a button
    std::span<const std::string_view> choices{};
};
constexpr std::array kRows{
    Row{ControlSpec{ControlKind::Text, "txtName", "Unit Name"}.describedAs(
            "First part of the tags that OPC clients ask for"),
        &UnitFields::name},
    Row{ControlSpec{ControlKind::Text, "txtAddress", "IP Address"}.describedAs(
            "Network address of the device"),
        &UnitFields::address},
    Row{ControlSpec{ControlKind::Text, "txtUI", "ModBus Unit Identifier", "", Place::NextRow, 8}.describedAs(
            "Modbus address of the device, unique among the units"),
        &UnitFields::identifier},
    Row{ControlSpec{ControlKind::Text, "txtTimeout", "Communication Timeout (ms)", "", Place::NextRow, 8}
            .describedAs("Time to wait for an answer, in milliseconds"),
        &UnitFields::timeout},
    Row{ControlSpec{ControlKind::Text, "txtPort", "Port Name (COMx)", "", Place::NextRow, 8}.describedAs(
            "Serial port that the device is connected to"),
        &UnitFields::port},
    Row{ControlSpec{ControlKind::Choice, "cmbBaud", "Baud rate (b/s)", "", Place::NextRow, 12}.describedAs(
            "Bits per second"),
        &UnitFields::baud, kBaudRates},
    Row{ControlSpec{ControlKind::Choice, "cmbParity", "Parity", "", Place::NextRow, 12}.describedAs(
            "Parity bit of each character"),
        &UnitFields::parity, kParities},
    Row{ControlSpec{ControlKind::Combo, "cmbData", "Data e Stop bits", "", Place::NextRow, 6}.describedAs(
            "Data bits per character"),
        &UnitFields::dataBits, kDataBits},
    Row{ControlSpec{ControlKind::Combo, "cmbStop", "", "", Place::SameRow, 6}.describedAs(
            "Stop bits per character"),
        &UnitFields::stopBits, kStopBits},
    Row{ControlSpec{ControlKind::Choice, "cmbFlow", "Flow Control", "", Place::NextRow, 12}.describedAs(
            "How the receiver pauses the sender"),
        &UnitFields::flowControl, kFlowControls},
    Row{ControlSpec{ControlKind::Text, "txtSilent", "Silent interval (ms)", "", Place::NextRow, 8}
            .describedAs("Pause between two telegrams, in milliseconds"),
        &UnitFields::silent},
    Row{ControlSpec{ControlKind::Button, "cmdOk", "Ok", "", Place::ButtonRow}.describedAs(
        "Stores the unit and closes the dialog")},
    Row{ControlSpec{ControlKind::Button, "cmdCancel", "Quit", "", Place::ButtonRow}.describedAs(
        "Closes the dialog without a change")},
};
constexpr auto kControls = controlsOf(kRows);
constexpr FormSpec kForm{"frmPLC", "Unit Properties", kControls, "cmdOk", "cmdCancel", "txtName"};

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
    const EditingState& state = context_.configuration.state;
    const UnitFields proposed = clsPLC::proposed();
    for (const Row& row : kRows) {
        if (row.text == nullptr) continue;
        const std::string_view control = row.control.name;
        if (!row.choices.empty()) form_->setItems(control, {row.choices.begin(), row.choices.end()});
        const bool used = clsPLC::hasField(row.text, state.interfaceKind);
        form_->setEnabled(control, used);
        if (used && edited_ == nullptr) form_->setText(control, proposed.*row.text);
    }
    if (edited_ != nullptr)
        loadRecord();
    else
        form_->setText("txtName", "New Plc " + std::to_string(state.unitCounter));
}

void frmPLC::loadRecord() {
    const UnitFields stored = edited_->texts(context_.configuration.state.interfaceKind);
    for (const Row& row : kRows) {
        if (row.text == nullptr) continue;
        if (row.control.kind == ControlKind::Choice) offerStored(*form_, row.control.name, stored.*row.text);
        form_->setText(row.control.name, stored.*row.text);
    }
}

bool frmPLC::CheckFields(const UnitFields& unit) {
    return passes(refusal(unit, context_.configuration, edited_.get()), context_.messages);
}

void frmPLC::cmdOk_Click() {
    const auto unit = textsOf<UnitFields>(*form_, kRows);
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
