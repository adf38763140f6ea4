#include "dialogs/frmGoToAddress.h"

#include <array>

#include "check/Places.h"
#include "check/Wording.h"
#include "model/ItemSpan.h"
#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix {

namespace {

constexpr std::array kControls{
    ControlSpec{ControlKind::Choice, "cmbUnit", "&Unit", "", Place::NextRow, 44}.describedAs(
        "Device that holds the address"),
    ControlSpec{ControlKind::Choice, "cmbModbusType", "&ModBus Type"}.describedAs("Table of the device"),
    ControlSpec{ControlKind::Text, "txtAddress", "&Address", "", Place::NextRow, 10, KeyFilter::Numeric}
        .describedAs("Register or bit in the table"),
    ControlSpec{ControlKind::Note, "txtFound", "Result"}.describedAs(
        "What lies next to an address that no item has"),
    ControlSpec{ControlKind::Button, "cmdOk", "&Go", "", Place::ButtonRow}.describedAs(
        "Selects the item at the address"),
    ControlSpec{ControlKind::Button, "cmdCancel", "Cance&l", "", Place::ButtonRow}.describedAs(
        "Closes the dialog"),
};
constexpr FormSpec kForm{"frmGoToAddress", "Go to Address", kControls, "cmdOk", "cmdCancel", "txtAddress"};

}  // namespace

const TreeNode* frmGoToAddress::show(const TreeNode* node) {
    found_ = nullptr;
    form_ = context_.forms.create(kForm);
    connect<frmGoToAddress>(*form_, context_.messages, *this,
                            {{"cmdOk", "cmdOk_Click", &frmGoToAddress::cmdOk_Click},
                             {"cmdCancel", "cmdCancel_Click", &frmGoToAddress::cmdCancel_Click}});
    reportErrors(context_.messages, "Form_Load", [&] { Form_Load(node); });
    form_->showModal();
    return found_;
}

void frmGoToAddress::Form_Load(const TreeNode* node) {
    const Configuration& configuration = context_.configuration;
    std::vector<std::string> units, tables;
    for (const auto& [key, unit] : configuration.units) units.push_back(unit->getName());
    for (const ModbusTable& table : modbusTables()) tables.emplace_back(table.label);
    form_->setVisible("txtFound", false);
    form_->setItems("cmbUnit", units);
    form_->setItems("cmbModbusType", tables);
    const TreeNode* unit = unitAround(configuration, node);
    form_->setText("cmbUnit", unit != nullptr ? unit->text() : units.empty() ? "" : units.front());
    form_->setText("cmbModbusType", tables.back());
    const auto item = node == nullptr ? nullptr : configuration.items.find(node->key());
    if (item == nullptr) return;
    const ItemFields texts = item->texts();
    if (tableOf(texts.table) != nullptr) form_->setText("cmbModbusType", texts.table);
    form_->setText("txtAddress", texts.address);
}

// Returns what is to be said where nothing lies.
std::string frmGoToAddress::search() {
    const Configuration& configuration = context_.configuration;
    const auto number = wholeNumber(form_->text("txtAddress"));
    if (!number) return "The address is not a number.";
    const TreeNode* unit = configuration.tree.find(form_->text("cmbUnit"));
    const ModbusTable* table = tableOf(form_->text("cmbModbusType"));
    if (unit == nullptr || table == nullptr) return "There is no unit.";
    Pulse pulse;
    const Survey survey(configuration, pulse);
    const Places places(survey, *unit);
    const std::int32_t address = toInt32(*number);
    const Places::Found found = places.find(*table, address);
    if (found.at != nullptr) {
        found_ = &places.nodeOf(*found.at);
        return {};
    }
    if (address < 0 || address > kLastAddress) return "Addresses are from 0 to 65535.";
    const auto told = [&](const ItemFacts* item) {
        return item == nullptr ? "nothing"
                               : shownKey(places.nodeOf(*item).key()) + " (" + shownPlace(*item) + ')';
    };
    return "No item lies at " + std::string(table->label) + ' ' + std::to_string(address) +
           ". In front of it: " + told(found.before) + ". Behind it: " + told(found.behind) + '.';
}

void frmGoToAddress::cmdOk_Click() {
    const std::string said = search();
    if (found_ != nullptr) return form_->close();
    form_->setText("txtFound", said);
    form_->setVisible("txtFound", true);
    form_->setFocus("txtAddress");
}

void frmGoToAddress::cmdCancel_Click() {
    form_->close();
}

}  // namespace trevandix
