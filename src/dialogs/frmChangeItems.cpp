#include "dialogs/frmChangeItems.h"

#include <array>
#include <utility>

#include "model/Numbers.h"
#include "model/ValueTypes.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kAddresses = "frmAddresses";
constexpr std::string_view kTexts = "frmTexts";
constexpr std::string_view kNames = "Names";
constexpr std::string_view kComments = "Comments";

using Row = FieldControl<ItemFields>;
constexpr std::array kRows{
    Row{ControlSpec{ControlKind::Heading, "lblItems"}},
    Row{ControlSpec{ControlKind::Choice, "cmbModbusType", "&ModBus Type"}.describedAs(
            "Table of the device that holds the items"),
        &ItemFields::table},
    Row{ControlSpec{ControlKind::Choice, "cmbDataType", "&Data Type"}.describedAs(
            "How the values are read from the device"),
        &ItemFields::type},
    Row{ControlSpec{ControlKind::Text, "txtElements", "&Number of Elements", "", Place::NextRow, 10,
                    KeyFilter::Numeric}
            .describedAs("Length of the arrays or strings"),
        &ItemFields::elements},
    Row{ControlSpec{ControlKind::Choice, "cmbAccessRight", "Access &Right"}.describedAs(
            "Whether OPC clients may read and write"),
        &ItemFields::accessRight},
    Row{ControlSpec{ControlKind::Text, "txtComment", "&Comment", "", Place::NextRow, 32}.describedAs(
            "Free text"),
        &ItemFields::comment},
    Row{ControlSpec{ControlKind::Frame, kAddresses, "Addresses"}},
    Row{ControlSpec{ControlKind::Text, "txtMove", "Mo&ve by", kAddresses, Place::NextRow, 10,
                    KeyFilter::Numeric}
            .describedAs("Number to add to each address, empty for none")},
    Row{ControlSpec{ControlKind::Text, "txtStart", "Num&ber from", kAddresses, Place::NextRow, 10,
                    KeyFilter::Numeric}
            .describedAs("First address when all are numbered anew, empty to leave them")},
    Row{ControlSpec{ControlKind::Choice, "cmbBit", "B&it", kAddresses, Place::SameRow, 6}.describedAs(
        "First bit of a register when all are numbered anew")},
    Row{ControlSpec{ControlKind::Frame, kTexts, "Find and replace"}},
    Row{ControlSpec{ControlKind::Choice, "cmbWhere", "Repl&ace in", kTexts, Place::NextRow, 14}.describedAs(
        "Names or comments")},
    Row{ControlSpec{ControlKind::Text, "txtFind", "&Find", kTexts, Place::NextRow, 32}.describedAs(
        "Text to replace, empty for none")},
    Row{ControlSpec{ControlKind::Text, "txtReplace", "Replace &with", kTexts, Place::NextRow, 32}.describedAs(
        "Text in its place")},
    Row{ControlSpec{ControlKind::Check, "chkCase", "Matc&h capitals", kTexts}.describedAs(
        "Finds the text only in the same capitals")},
    Row{ControlSpec{ControlKind::Button, "cmdOk", "&Preview", "", Place::ButtonRow}.describedAs(
        "Shows what would change")},
    Row{ControlSpec{ControlKind::Button, "cmdCancel", "Cance&l", "", Place::ButtonRow}.describedAs(
        "Closes the dialog without a change")},
};
constexpr auto kControls = controlsOf(kRows);
constexpr FormSpec kForm{"frmChangeItems", "Change Items", kControls, "cmdOk", "cmdCancel", "cmbModbusType"};

ItemFields commonTexts(const Configuration& configuration, std::span<const TreeNode* const> items) {
    std::optional<ItemFields> common;
    for (const TreeNode* node : items) {
        const auto record = configuration.items.find(node->key());
        if (record == nullptr) continue;
        const ItemFields texts = record->texts();
        if (!common) common = texts;
        for (const Row& row : kRows) {
            if (row.text != nullptr) keepCommon(*common.*row.text, texts.*row.text);
        }
    }
    return common.value_or(ItemFields{});
}

}  // namespace

frmChangeItems::frmChangeItems(const DialogContext& context, std::vector<const TreeNode*> items)
    : context_(context), items_(std::move(items)), form_(context.forms.create(kForm)) {
    connect<frmChangeItems>(*form_, context_.messages, *this,
                            {{"cmbModbusType", "cmbModbusType_Click", &frmChangeItems::cmbModbusType_Click},
                             {"cmbDataType", "cmbDataType_Click", &frmChangeItems::cmbDataType_Click},
                             {"cmdOk", "cmdOk_Click", &frmChangeItems::cmdOk_Click},
                             {"cmdCancel", "cmdCancel_Click", &frmChangeItems::cmdCancel_Click}});
    reportErrors(context_.messages, "Form_Load", [&] { Form_Load(); });
}

std::optional<ChangeSet> frmChangeItems::show() {
    changes_.reset();
    form_->showModal();
    return std::move(changes_);
}

void frmChangeItems::Form_Load() {
    common_ = commonTexts(context_.configuration, items_);
    form_->setText("lblItems", counted(items_.size(), "item", "items"));
    std::vector<std::string> tables;
    for (const auto& [key, type] : context_.configuration.dataTypes) tables.push_back(type->getName());
    offer("cmbModbusType", &ItemFields::table, tables);
    chooseStored(*form_, "cmbModbusType", common_.table);
    offerValues();
    for (const Row& row : kRows) {
        if (row.text != nullptr) form_->setText(row.control.name, common_.*row.text);
    }
    form_->setItems("cmbBit", bitNumbers());
    form_->setText("cmbBit", "0");
    form_->setItems("cmbWhere", {std::string(kNames), std::string(kComments)});
    form_->setText("cmbWhere", kNames);
    cmbDataType_Click();
}

void frmChangeItems::offer(std::string_view list, std::string ItemFields::*text,
                           std::vector<std::string> entries) {
    const std::string& own = common_.*text;
    if (own == kDifferent) entries.insert(entries.begin(), own);
    form_->setItems(list, entries);
}

void frmChangeItems::offerValues() {
    const std::string table = form_->text("cmbModbusType");
    std::vector<std::string> types = valueTypesOf(table);
    if (table == kDifferent) {
        types.clear();
        for (const ValueType& type : valueTypes()) types.emplace_back(type.label);
    }
    offer("cmbDataType", &ItemFields::type, types);
    offer("cmbAccessRight", &ItemFields::accessRight, accessRightsOf(table));
    if (table != common_.table) return;  // the items' unusual values fit no other table
    offerStored(*form_, "cmbDataType", common_.type);
    offerStored(*form_, "cmbAccessRight", common_.accessRight);
}

void frmChangeItems::cmbModbusType_Click() {
    const std::string type = form_->text("cmbDataType");
    const std::string right = form_->text("cmbAccessRight");
    offerValues();
    form_->setText("cmbDataType", type);
    form_->setText("cmbAccessRight", right);
    cmbDataType_Click();
}

void frmChangeItems::cmbDataType_Click() {
    const std::string type = form_->text("cmbDataType");
    form_->setEnabled("txtElements", hasElements(type) || type == kDifferent);
}

std::optional<ItemsEdit> frmChangeItems::entered() const {
    const auto refused = [&](std::string_view message) {
        context_.messages.show(message);
        return std::nullopt;
    };
    if (form_->text("cmbDataType").empty()) return refused("Data Type field is empty.");
    if (form_->text("cmbAccessRight").empty()) return refused("Access Rights field is empty.");
    ItemsEdit edit;
    for (const Row& row : kRows) {
        if (row.text == nullptr || !form_->enabled(row.control.name)) continue;
        std::string text = form_->text(row.control.name);
        if (text != common_.*row.text) edit.values.emplace_back(row.text, std::move(text));
    }
    if (!takeAddresses(edit)) return std::nullopt;
    edit.replacement = {.where = form_->text("cmbWhere") == kNames ? &ItemFields::name : &ItemFields::comment,
                        .find = form_->text("txtFind"),
                        .by = form_->text("txtReplace"),
                        .ignoreCase = !form_->checked("chkCase")};
    return edit;
}

bool frmChangeItems::takeAddresses(ItemsEdit& edit) const {
    const std::string move = form_->text("txtMove");
    const std::string start = form_->text("txtStart");
    const bool valid = (move.empty() || isNumeric(move)) && (start.empty() || isNumeric(start));
    if (!valid) {
        context_.messages.show("The address is not a number.");
    } else if (!move.empty() && !start.empty()) {
        context_.messages.show("Addresses are either moved or numbered anew.");
    } else {
        if (!move.empty()) edit.move = toInt32(*wholeNumber(move));
        if (!start.empty())
            edit.start = ItemPlace{toInt32(*wholeNumber(start)), int32Value(form_->text("cmbBit"))};
        return true;
    }
    return false;
}

void frmChangeItems::cmdOk_Click() {
    const std::optional<ItemsEdit> edit = entered();
    if (!edit) return;
    const PointerScope hourglass(context_.pointer, Pointer::Hourglass);
    ChangeSet changes = changeItems(context_.configuration, items_, *edit);
    if (changes.changes().empty()) return void(context_.messages.show(kNothingChanges));
    changes_ = std::move(changes);
    form_->close();
}

void frmChangeItems::cmdCancel_Click() {
    form_->close();
}

}  // namespace trevandix
