#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dialogs/Dialog.h"

namespace trevandix {

/// Adds items below the selected unit or branch, one or many, or edits the selected item.
class frmItems {
public:
    explicit frmItems(const DialogContext& context) : context_(context) {}

    /// Stays open for as many items as the user wants.
    void showToAdd() { show(nullptr); }
    /// `record` is the one under the selected node's key.
    void showToEdit(std::shared_ptr<const clsItem> record) { show(std::move(record)); }

private:
    void show(std::shared_ptr<const clsItem> edited);
    void Form_Load();
    void loadRecord();
    void cmbModbusType_Click();
    void cmbDataType_Click();
    void cmdAdd_Click();
    void cmdGroup_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    void cmdOkNumber_Click();
    void leaveGroup();

    bool CheckFields(const ItemFields& item);
    void AddItemToColl();
    void addItem(const ItemFields& item);
    void changeItem(const ItemFields& item);
    void addAndPropose();
    void proposeNextItem();
    void addGroup(std::int16_t count);
    std::string text(std::string_view control) const { return form_->text(control); }

    DialogContext context_;
    std::unique_ptr<Form> form_;
    std::shared_ptr<const clsItem> edited_;  ///< nullptr while items are added
    bool stored_ = false;                    ///< the last AddItemToColl added or changed an item
};

}  // namespace trevandix
