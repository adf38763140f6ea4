#include "dialogs/frmModBus.h"

#include <array>
#include <vector>

#include "model/ValueTypes.h"

namespace trevandix {

namespace {

using Row = FieldControl<DataTypeFields>;
// In Tab order: the buttons come before the single write code.
constexpr std::array kRows{
    Row{ControlSpec{ControlKind::Heading, "lblHeading", "Enter ModBus data Type properties:"}},
    Row{ControlSpec{ControlKind::Choice, "cmbMBType", "Mod Bus Data Type"}.describedAs(
            "Table of the Modbus device"),
        &DataTypeFields::name},
    Row{ControlSpec{ControlKind::Text, "txtReadCode", "Read function Code", "", Place::NextRow, 8}
            .describedAs("Modbus function that reads the table"),
        &DataTypeFields::readCode},
    Row{ControlSpec{ControlKind::Text, "txtWriteCode", "Write Function Code", "", Place::NextRow, 8}
            .describedAs("Modbus function that writes several values"),
        &DataTypeFields::writeCode},
    Row{ControlSpec{ControlKind::Button, "cmdOk", "Ok", "", Place::ButtonRow}.describedAs(
        "Stores the codes and closes the dialog")},
    Row{ControlSpec{ControlKind::Button, "cmdCancel", "Exit", "", Place::ButtonRow}.describedAs(
        "Closes the dialog without a change")},
    Row{ControlSpec{ControlKind::Check, "chkSingle", "Single Write Function Code"}.describedAs(
        "Single values have a write function of their own")},
    Row{ControlSpec{ControlKind::Text, "txtSingleCode", "", "", Place::SameRow, 8}.describedAs(
            "Modbus function that writes one value"),
        &DataTypeFields::singleCode},
};
constexpr auto kControls = controlsOf(kRows);
constexpr FormSpec kForm{"frmModBus", "ModBus Data Type Properties", kControls, "cmdOk", "cmdCancel",
                         "cmbMBType"};

}  // namespace

std::optional<clsModBusType> frmModBus::showToAdd() {
    edit_ = false;
    show();
    return added_;
}

void frmModBus::showToEdit(const std::string& name) {
    edit_ = true;
    editedName_ = name;
    show();
}

void frmModBus::show() {
    added_.reset();
    form_ = context_.forms.create(kForm);
    connect<frmModBus>(*form_, context_.messages, *this,
                       {{"cmbMBType", "cmbMBType_Click", &frmModBus::cmbMBType_Click},
                        {"chkSingle", "chkSingle_Click", &frmModBus::chkSingle_Click},
                        {"cmdOk", "cmdOk_Click", &frmModBus::cmdOk_Click},
                        {"cmdCancel", "cmdCancel_Click", &frmModBus::cmdCancel_Click}});
    reportErrors(context_.messages, "Form_Load", [&] { Form_Load(); });
    form_->showModal();
}

void frmModBus::Form_Load() {
    std::vector<std::string> names;
    for (const ModbusTable& table : modbusTables()) names.emplace_back(table.label);
    form_->setItems("cmbMBType", names);
    form_->setEnabled("txtSingleCode", false);  // the check box enables it
    if (!edit_) return;
    chooseStored(*form_, "cmbMBType", editedName_);
    showFields(context_.configuration.dataTypes.at(editedName_)->texts());
}

void frmModBus::showFields(const DataTypeFields& type) {
    for (const Row& row : kRows) {
        if (row.text != nullptr) form_->setText(row.control.name, type.*row.text);
    }
    const bool writes = !isReadOnly(type.name);
    form_->setChecked("chkSingle", type.single);
    form_->setEnabled("txtWriteCode", writes);
    form_->setEnabled("chkSingle", writes);
    form_->setEnabled("txtSingleCode", type.single);
}

void frmModBus::cmbMBType_Click() {
    const ModbusTable* table = tableOf(form_->text("cmbMBType"));
    // Any other entry is the name of the edited record.
    showFields(table != nullptr ? clsModBusType::usual(*table).texts()
                                : context_.configuration.dataTypes.at(editedName_)->texts());
}

void frmModBus::chkSingle_Click() {
    const bool single = form_->checked("chkSingle");
    form_->setEnabled("txtSingleCode", single);
    if (!single) form_->setText("txtSingleCode", "");
}

bool frmModBus::CheckFields(const DataTypeFields& type) {
    return passes(refusal(type, context_.configuration, edit_), context_.messages);
}

void frmModBus::cmdOk_Click() {
    auto type = textsOf<DataTypeFields>(*form_, kRows);
    type.single = form_->checked("chkSingle");
    if (!CheckFields(type)) return;
    Configuration& configuration = context_.configuration;
    clsModBusType record;
    record.SetByForm(type);
    if (record.getName().empty()) throw RuntimeError(ErrorNumber::InvalidCall);  // a node needs a key
    if (edit_) {
        configuration.replaceDataType(editedName_, std::move(record));
    } else {
        requireFree(configuration.dataTypes, record.getName());
        added_ = std::move(record);
    }
    form_->close();
}

void frmModBus::cmdCancel_Click() {
    added_.reset();
    form_->close();
}

}  // namespace trevandix
