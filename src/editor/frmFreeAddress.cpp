#include "editor/frmFreeAddress.h"

#include <array>
#include <memory>
#include <vector>

#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix {

namespace {

constexpr std::array kControls{
    ControlSpec{ControlKind::Choice, "cmbModbusType", "ModBus Type"}.describedAs(
        "Table of the device in which to look"),
    ControlSpec{ControlKind::Choice, "cmbDataType", "Data Type"}.describedAs(
        "Type of the value that needs room"),
    ControlSpec{ControlKind::Text, "txtElements", "Number of Elements", "", Place::NextRow, 10,
                KeyFilter::Numeric, "lblElements"}
        .describedAs("Length of the array or string"),
    ControlSpec{ControlKind::Button, "cmdOk", "&Find", "", Place::ButtonRow}.describedAs(
        "Selects the next free stretch and copies its address"),
    ControlSpec{ControlKind::Button, "cmdCancel", "E&xit", "", Place::ButtonRow}.describedAs(
        "Closes the dialog"),
};
constexpr FormSpec kForm{"frmFreeAddress", "Next Free Address", kControls,
                         "cmdOk",          "cmdCancel",         "cmbModbusType"};

class Dialog {
public:
    Dialog(Forms& forms, const Configuration& configuration) : form_(forms.create(kForm)) {
        std::vector<std::string> tables;
        for (const auto& [key, type] : configuration.dataTypes) {
            if (tableOf(type->getName()) != nullptr) tables.push_back(type->getName());
        }
        form_->setItems("cmbModbusType", tables);
        form_->on("cmbModbusType", [this] { offerTypes(); });
        form_->on("cmbDataType", [this] { enableElements(); });
        form_->on("cmdCancel", [this] { form_->close(); });
    }

    std::optional<FreeAddressFields> show(const FreeAddressFields& proposed, Messages& messages) {
        std::optional<FreeAddressFields> answer;
        form_->setText("cmbModbusType", proposed.table);
        offerTypes();
        form_->setText("cmbDataType", proposed.type);
        enableElements();
        if (form_->enabled("txtElements")) form_->setText("txtElements", proposed.elements);
        form_->on("cmdOk", [&] {
            if (const auto refused = refusal()) return void(messages.show(*refused));
            answer = entered();
            form_->close();
        });
        form_->showModal();
        return answer;
    }

private:
    FreeAddressFields entered() const {
        return {form_->text("cmbModbusType"), form_->text("cmbDataType"), form_->text("txtElements")};
    }

    std::optional<std::string_view> refusal() const {
        const FreeAddressFields fields = entered();
        if (fields.table.empty()) return "ModBus Type field is empty.";
        if (fields.type.empty()) return "Data Type field is empty.";
        if (!hasElements(fields.type)) return std::nullopt;
        const auto elements = wholeNumber(fields.elements);
        const bool valid = elements && *elements >= 1 && *elements <= kMostElements;
        return valid ? std::nullopt
                     : std::optional<std::string_view>("Number of elements field is not valid.");
    }

    void offerTypes() {
        const std::string before = form_->text("cmbDataType");
        form_->setItems("cmbDataType", valueTypesOf(form_->text("cmbModbusType")));
        form_->setText("cmbDataType", before);
        enableElements();
    }

    void enableElements() {
        const bool needed = hasElements(form_->text("cmbDataType"));
        form_->setEnabled("txtElements", needed);
        if (!needed) form_->setText("txtElements", "");
    }

    static constexpr double kMostElements = 32767;
    std::unique_ptr<Form> form_;
};

}  // namespace

std::optional<FreeAddressFields> showFrmFreeAddress(Forms& forms, Messages& messages,
                                                    const Configuration& configuration,
                                                    const FreeAddressFields& proposed) {
    return Dialog(forms, configuration).show(proposed, messages);
}

}  // namespace trevandix
