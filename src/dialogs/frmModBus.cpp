#include "dialogs/frmModBus.h"

#include <array>
#include <vector>

#include "model/ValueTypes.h"

namespace trevandix {

namespace {

// In Tab order: the buttons come before the single write code.
constexpr std::array kControls{
    ControlSpec{ControlKind::Heading, "lblHeading", "Enter ModBus data Type properties:"},
    ControlSpec{ControlKind::Choice, "cmbMBType", "Mod Bus Data Type"}.describedAs(
        "Table of the Modbus device"),
    ControlSpec{ControlKind::Text, "txtReadCode", "Read function Code", "", Place::NextRow, 8}.describedAs(
        "Modbus function that reads the table"),
    ControlSpec{ControlKind::Text, "txtWriteCode", "Write Function Code", "", Place::NextRow, 8}.describedAs(
        "Modbus function that writes several values"),
    ControlSpec{ControlKind::Button, "cmdOk", "Ok", "", Place::ButtonRow}.describedAs(
        "Takes over the codes and closes"),
    ControlSpec{ControlKind::Button, "cmdCancel", "Exit", "", Place::ButtonRow}.describedAs(
        "Closes without a change"),
    ControlSpec{ControlKind::Check, "chkSingle", "Single Write Function Code"}.describedAs(
        "Single values are written by a function of their own"),
    ControlSpec{ControlKind::Text, "txtSingleCode", "", "", Place::SameRow, 8}.describedAs(
        "Modbus function that writes one value"),
};
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
    form_->setEnabled("txtSingleCode", false);  // goes with the check box
    if (!edit_) return;
    chooseStored(*form_, "cmbMBType", editedName_);
    loadCodes();
}

void frmModBus::loadCodes() {
    const auto record = context_.configuration.dataTypes.at(editedName_);
    form_->setText("txtReadCode", std::to_string(record->getReadCode()));
    disableWriting();
    if (isReadOnly(editedName_)) return;
    form_->setText("txtWriteCode", std::to_string(record->getWriteCode()));
    const bool single = record->getSingleWrCode() > 0;
    form_->setChecked("chkSingle", single);
    if (single) form_->setText("txtSingleCode", std::to_string(record->getSingleWrCode()));
    form_->setEnabled("txtWriteCode", true);
    form_->setEnabled("chkSingle", true);
    form_->setEnabled("txtSingleCode", single);
}

void frmModBus::disableWriting() {
    for (const std::string_view code : {"txtWriteCode", "txtSingleCode"}) {
        form_->setText(code, "");
        form_->setEnabled(code, false);
    }
    form_->setChecked("chkSingle", false);
    form_->setEnabled("chkSingle", false);
}

void frmModBus::cmbMBType_Click() {
    disableWriting();
    const ModbusTable* table = tableOf(form_->text("cmbMBType"));
    if (table == nullptr) {  // the name of the edited record
        loadCodes();
        return;
    }
    form_->setText("txtReadCode", std::to_string(table->readCode));
    if (!table->writable()) return;
    form_->setText("txtWriteCode", std::to_string(table->writeCode));
    form_->setText("txtSingleCode", std::to_string(table->singleWrCode));
    form_->setChecked("chkSingle", true);
    for (const std::string_view control : {"txtWriteCode", "txtSingleCode", "chkSingle"}) {
        form_->setEnabled(control, true);
    }
}

void frmModBus::chkSingle_Click() {
    const bool single = form_->checked("chkSingle");
    form_->setEnabled("txtSingleCode", single);
    if (!single) form_->setText("txtSingleCode", "");
}

DataTypeFields frmModBus::fields() const {
    return {.name = form_->text("cmbMBType"),
            .readCode = form_->text("txtReadCode"),
            .writeCode = form_->text("txtWriteCode"),
            .single = form_->checked("chkSingle"),
            .singleCode = form_->text("txtSingleCode")};
}

bool frmModBus::CheckFields(const DataTypeFields& type) {
    return passes(refusal(type, context_.configuration, edit_), context_.messages);
}

void frmModBus::cmdOk_Click() {
    const DataTypeFields type = fields();
    if (!CheckFields(type)) return;
    Configuration& configuration = context_.configuration;
    clsModBusType record;
    record.SetByForm(type);
    if (record.getName().empty()) throw RuntimeError(ErrorNumber::InvalidCall);  // it could have no node
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
