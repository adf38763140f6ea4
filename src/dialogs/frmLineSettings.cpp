#include "dialogs/frmLineSettings.h"

#include <array>
#include <span>
#include <utility>

#include "check/Wording.h"
#include "model/UnitChoices.h"

namespace trevandix {

namespace {

struct Row {
    ControlSpec control;
    std::string UnitFields::*text = nullptr;  ///< nullptr for a control that holds no setting
    std::span<const std::string_view> choices{};
};
constexpr std::array kRows{
    Row{ControlSpec{ControlKind::Choice, "cmbPort", "Port &Name", "", Place::NextRow, 12}.describedAs(
        "Serial port of the units")},
    Row{ControlSpec{ControlKind::Heading, "lblUnits"}},
    Row{ControlSpec{ControlKind::Choice, "cmbBaud", "&Baud rate (b/s)", "", Place::NextRow, 12}.describedAs(
            "Bits per second"),
        &UnitFields::baud, kBaudRates},
    Row{ControlSpec{ControlKind::Choice, "cmbParity", "P&arity", "", Place::NextRow, 12}.describedAs(
            "Parity bit of each character"),
        &UnitFields::parity, kParities},
    Row{ControlSpec{ControlKind::Combo, "cmbData", "&Data bits", "", Place::NextRow, 12}.describedAs(
            "Data bits per character"),
        &UnitFields::dataBits, kDataBits},
    Row{ControlSpec{ControlKind::Combo, "cmbStop", "&Stop bits", "", Place::NextRow, 12}.describedAs(
            "Stop bits per character"),
        &UnitFields::stopBits, kStopBits},
    Row{ControlSpec{ControlKind::Choice, "cmbFlow", "&Flow Control", "", Place::NextRow, 12}.describedAs(
            "How the receiver pauses the sender"),
        &UnitFields::flowControl, kFlowControls},
    Row{ControlSpec{ControlKind::Button, "cmdOk", "&Preview", "", Place::ButtonRow}.describedAs(
        "Shows what would change")},
    Row{ControlSpec{ControlKind::Button, "cmdCancel", "Cance&l", "", Place::ButtonRow}.describedAs(
        "Closes the dialog without a change")},
};
constexpr auto kControls = controlsOf(kRows);
constexpr FormSpec kForm{"frmLineSettings", "Line Settings", kControls, "cmdOk", "cmdCancel", "cmbPort"};

}  // namespace

frmLineSettings::frmLineSettings(const DialogContext& context, std::string_view port)
    : context_(context), form_(context.forms.create(kForm)) {
    connect<frmLineSettings>(*form_, context_.messages, *this,
                             {{"cmbPort", "cmbPort_Click", &frmLineSettings::cmbPort_Click},
                              {"cmdOk", "cmdOk_Click", &frmLineSettings::cmdOk_Click},
                              {"cmdCancel", "cmdCancel_Click", &frmLineSettings::cmdCancel_Click}});
    reportErrors(context_.messages, "Form_Load", [&] { Form_Load(port); });
}

std::optional<ChangeSet> frmLineSettings::show() {
    changes_.reset();
    form_->showModal();
    return std::move(changes_);
}

void frmLineSettings::Form_Load(std::string_view port) {
    std::vector<std::string> ports;
    for (const auto& [key, unit] : context_.configuration.units)
        if (std::ranges::find(ports, unit->getCom()) == ports.end()) ports.push_back(unit->getCom());
    form_->setItems("cmbPort", ports);
    const bool known = std::ranges::find(ports, port) != ports.end();
    if (!ports.empty()) form_->setText("cmbPort", known ? port : std::string_view(ports.front()));
    cmbPort_Click();
}

void frmLineSettings::cmbPort_Click() {
    const std::string port = form_->text("cmbPort");
    constexpr std::size_t kMostNames = 6;
    std::string names;
    std::size_t count = 0;
    for (const auto& [key, unit] : context_.configuration.units) {
        if (unit->getCom() != port) continue;
        const UnitFields texts = unit->texts(kRtu);
        if (count == 0) common_ = texts;
        for (const Row& row : kRows)
            if (row.text != nullptr) keepCommon(common_.*row.text, texts.*row.text);
        if (count++ < kMostNames) names.append(names.empty() ? "Units: " : ", ").append(unit->getName());
    }
    form_->setText("lblUnits", names + andMore(count - std::min(count, kMostNames)));
    for (const Row& row : kRows) {
        if (row.text == nullptr) continue;
        form_->setItems(row.control.name, {row.choices.begin(), row.choices.end()});
        chooseStored(*form_, row.control.name, common_.*row.text);
    }
}

void frmLineSettings::cmdOk_Click() {
    UnitTexts settings;
    for (const Row& row : kRows) {
        if (row.text == nullptr) continue;
        std::string text = form_->text(row.control.name);
        if (text != common_.*row.text) settings.emplace_back(row.text, std::move(text));
    }
    ChangeSet changes = changeLine(context_.configuration, form_->text("cmbPort"), settings);
    if (changes.changes().empty()) return void(context_.messages.show(kNothingChanges));
    changes_ = std::move(changes);
    form_->close();
}

void frmLineSettings::cmdCancel_Click() {
    form_->close();
}

}  // namespace trevandix
