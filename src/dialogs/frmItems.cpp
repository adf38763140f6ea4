#include "dialogs/frmItems.h"

#include <array>
#include <utility>
#include <vector>

#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix {

namespace {

constexpr std::string_view kMain = "frmMain";
constexpr std::string_view kGroup = "frmInserimento";

using Row = FieldControl<ItemFields>;
constexpr std::array kRows{
    Row{ControlSpec{ControlKind::Frame, kMain}},
    Row{ControlSpec{ControlKind::Choice, "cmbModbusType", "ModBus Type", kMain}.describedAs(
            "Table of the device that holds the item"),
        &ItemFields::table},
    Row{ControlSpec{ControlKind::Text, "txtItemName", "Item Name", kMain, Place::NextRow, 32,
                    KeyFilter::ItemName}
            .describedAs("Last part of the tag that OPC clients ask for"),
        &ItemFields::name},
    Row{ControlSpec{ControlKind::Text, "txtComment", "Comment", kMain, Place::NextRow, 32}.describedAs(
            "Free text"),
        &ItemFields::comment},
    Row{ControlSpec{ControlKind::Text, "txtAddress", "Address", kMain, Place::NextRow, 10, KeyFilter::Numeric}
            .describedAs("First register or bit in the table"),
        &ItemFields::address},
    Row{ControlSpec{ControlKind::Choice, "cmbDataType", "Data Type", kMain}.describedAs(
            "How the value is read from the device"),
        &ItemFields::type},
    Row{ControlSpec{ControlKind::Choice, "cmbAccessRight", "Access Right", kMain}.describedAs(
            "Whether OPC clients may read and write"),
        &ItemFields::accessRight},
    Row{ControlSpec{ControlKind::Choice, "cmbBit", "Bit Number", kMain, Place::NextRow, 6, KeyFilter::None,
                    "lblBit"}
            .describedAs("Bit of the register, from 0"),
        &ItemFields::bit},
    Row{ControlSpec{ControlKind::Text, "txtElements", "Number of Elements", kMain, Place::NextRow, 10,
                    KeyFilter::Numeric, "lblElements"}
            .describedAs("Length of the array or string"),
        &ItemFields::elements},
    Row{ControlSpec{ControlKind::Button, "cmdAdd", "Add and Increment", kMain, Place::ButtonColumn}
            .describedAs("Adds the item and fills in the next one")},
    Row{ControlSpec{ControlKind::Button, "cmdGroup", "Add Group....", kMain, Place::ButtonColumn}.describedAs(
        "Adds several items in a row")},
    Row{ControlSpec{ControlKind::Button, "cmdOk", "Add and Exit", kMain, Place::ButtonColumn}.describedAs(
        "Stores the item and closes the dialog")},
    Row{ControlSpec{ControlKind::Button, "cmdCancel", "Exit", kMain, Place::ButtonColumn}.describedAs(
        "Closes the dialog without adding")},
    Row{ControlSpec{ControlKind::Frame, kGroup}},
    Row{ControlSpec{ControlKind::Text, "txtNumbItems", "INSERT NUMBER OF ITEMS TO ADD", kGroup,
                    Place::NextRow, 8, KeyFilter::Numeric}
            .describedAs("How many items in a row are added")},
    Row{ControlSpec{ControlKind::Button, "cmdOkNumber", "Ok", kGroup, Place::SameRow}.describedAs(
        "Adds the items")},
};
constexpr auto kControls = controlsOf(kRows);
constexpr FormSpec kForm{"frmItems", "Item Properties", kControls, "cmdOk", "cmdCancel", "txtItemName"};

}  // namespace

void frmItems::show(std::shared_ptr<const clsItem> edited) {
    edited_ = std::move(edited);
    form_ = context_.forms.create(kForm);
    connect<frmItems>(*form_, context_.messages, *this,
                      {{"cmbModbusType", "cmbModbusType_Click", &frmItems::cmbModbusType_Click},
                       {"cmbDataType", "cmbDataType_Click", &frmItems::cmbDataType_Click},
                       {"cmdAdd", "cmdAdd_Click", &frmItems::cmdAdd_Click},
                       {"cmdGroup", "cmdGroup_Click", &frmItems::cmdGroup_Click},
                       {"cmdOk", "cmdOk_Click", &frmItems::cmdOk_Click},
                       {"cmdCancel", "cmdCancel_Click", &frmItems::cmdCancel_Click},
                       {"cmdOkNumber", "cmdOkNumber_Click", &frmItems::cmdOkNumber_Click},
                       {kGroup, "frmInserimento_Escape", &frmItems::leaveGroup}});
    reportErrors(context_.messages, "Form_Load", [&] { Form_Load(); });
    form_->showModal();
}

void frmItems::Form_Load() {
    form_->setVisible(kGroup, false);
    std::vector<std::string> tables;
    for (const auto& [key, type] : context_.configuration.dataTypes) tables.push_back(type->getName());
    form_->setItems("cmbModbusType", tables);
    form_->setItems("cmbBit", bitNumbers());
    if (edited_ != nullptr) {
        loadRecord();
        return;
    }
    form_->setText("txtItemName", "New Item " + std::to_string(context_.configuration.state.itemCounter));
    cmbDataType_Click();
}

void frmItems::loadRecord() {
    form_->setText("cmdOk", "Confirm Modify");
    form_->setEnabled("cmdAdd", false);
    form_->setEnabled("cmdGroup", false);
    // The table decides which types are offered, the type decides which fields are enabled.
    const ItemFields stored = edited_->texts();
    chooseStored(*form_, "cmbModbusType", stored.table);
    cmbModbusType_Click();
    form_->setText("cmbDataType", stored.type);
    cmbDataType_Click();
    for (const Row& row : kRows) {
        if (row.text != nullptr && form_->enabled(row.control.name))
            form_->setText(row.control.name, stored.*row.text);
    }
}

void frmItems::cmbModbusType_Click() {
    const std::string table = text("cmbModbusType");
    form_->setItems("cmbDataType", valueTypesOf(table));
    form_->setItems("cmbAccessRight", accessRightsOf(table));
    if (edited_ == nullptr) return;
    const ItemType own = splitDataType(edited_->sDataType());
    if (table != own.table) return;  // its unusual values fit no other table
    offerStored(*form_, "cmbDataType", std::string(own.label));
    offerStored(*form_, "cmbAccessRight", edited_->sAccessRight());
}

void frmItems::cmbDataType_Click() {
    const std::string table = text("cmbModbusType");
    const std::string label = text("cmbDataType");
    const bool hasBit = hasBitNumber(table, label);
    form_->setEnabled("cmbBit", hasBit);
    if (!hasBit) {
        form_->setText("cmbBit", "0");
    } else if (edited_ != nullptr) {
        chooseStored(*form_, "cmbBit", std::to_string(edited_->nBitNumber()));
    }
    form_->setEnabled("txtElements", hasElements(label));
    if (!hasElements(label)) form_->setText("txtElements", "0");
}

bool frmItems::CheckFields(const ItemFields& item) {
    return passes(refusal(item), context_.messages);
}

void frmItems::AddItemToColl() {
    stored_ = false;
    const auto item = textsOf<ItemFields>(*form_, kRows);
    if (!CheckFields(item)) return;
    edited_ != nullptr ? changeItem(item) : addItem(item);
}

void frmItems::changeItem(const ItemFields& item) {
    Configuration& configuration = context_.configuration;
    const bool nameFits =
        item.name == edited_->sName() ||
        CheckDuplNames(NodeTag::Item, item.name, configuration.tree, true, context_.messages);
    if (!nameFits) return;
    TreeNode& node = *configuration.tree.selected();
    clsItem record;
    record.SetByForm(item, node.parent()->key());
    configuration.replaceItem(node, std::move(record));
    configuration.tree.select(&node);
    configuration.setSaved(false);
    stored_ = true;
}

void frmItems::addItem(const ItemFields& item) {
    Configuration& configuration = context_.configuration;
    if (!CheckDuplNames(NodeTag::Item, item.name, configuration.tree, false, context_.messages)) return;
    TreeNode& container = *configuration.tree.selected();
    clsItem record;
    record.SetByForm(item, container.key());
    configuration.tree.ensureVisible(configuration.addItem(std::move(record), container));
    configuration.setSaved(false);
    configuration.raiseCounter(NodeTag::Item);
    stored_ = true;
}

void frmItems::cmdOk_Click() {
    AddItemToColl();
    if (stored_) form_->close();
}

void frmItems::cmdCancel_Click() {
    form_->close();
}

void frmItems::cmdAdd_Click() {
    addAndPropose();
    if (!stored_) return;
    form_->setFocus("txtItemName");
    if (context_.changed) context_.changed();
}

void frmItems::addAndPropose() {
    AddItemToColl();
    if (stored_) proposeNextItem();
}

void frmItems::proposeNextItem() {
    const ItemPlace place{toInt32(leadingNumber(text("txtAddress"))), toInt32(leadingNumber(text("cmbBit")))};
    const ItemPlace next = advanced(place, text("cmbModbusType"), text("cmbDataType"),
                                    toInt32(leadingNumber(text("txtElements"))));
    form_->setText("txtItemName", "New_Item_" + std::to_string(context_.configuration.state.itemCounter));
    form_->setText("txtAddress", std::to_string(next.address));
    // Sets only what changes: in a large group, setting controls takes most of the time.
    if (!text("txtComment").empty()) form_->setText("txtComment", "");
    if (next.bit != place.bit) form_->setText("cmbBit", std::to_string(next.bit));
}

void frmItems::cmdGroup_Click() {
    form_->setEnabled(kMain, false);
    form_->setVisible(kGroup, true);
    form_->setText("txtNumbItems", "1");
    form_->setFocus("txtNumbItems");
}

void frmItems::cmdOkNumber_Click() {
    const auto number = wholeNumber(text("txtNumbItems"));
    if (!number) {
        context_.messages.show("Number of items is not valid.");
        return;
    }
    const std::int16_t count = toInt16(*number);  // throws for too large a number and leaves the panel open
    form_->setVisible(kGroup, false);
    addGroup(count);
    leaveGroup();
    if (context_.changed) context_.changed();
}

void frmItems::leaveGroup() {
    form_->setVisible(kGroup, false);
    form_->setEnabled(kMain, true);
    form_->setFocus("txtItemName");
}

void frmItems::addGroup(std::int16_t count) {
    if (count < 1) return;
    const PointerScope hourglass(context_.pointer, Pointer::Hourglass);
    const StructureTree::Batch batch(context_.configuration.tree);
    for (std::int16_t added = 0; added < count; ++added) {
        stored_ = false;
        reportErrors(context_.messages, "cmdAdd_Click", [&] { addAndPropose(); });
        if (!stored_) return;
    }
}

}  // namespace trevandix
