#pragma once

#include <memory>
#include <optional>
#include <string>

#include "dialogs/Dialog.h"

namespace trevandix {

/// Adds a Modbus data type or edits one.
class frmModBus {
public:
    explicit frmModBus(const DialogContext& context) : context_(context) {}

    /// The data type to add; nothing when the user cancels.
    std::optional<clsModBusType> showToAdd();
    void showToEdit(const std::string& name);

private:
    void show();
    void Form_Load();
    void cmbMBType_Click();
    void chkSingle_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    bool CheckFields(const DataTypeFields& type);
    void showFields(const DataTypeFields& type);

    DialogContext context_;
    std::unique_ptr<Form> form_;
    bool edit_ = false;
    std::string editedName_;
    std::optional<clsModBusType> added_;
};

}  // namespace trevandix
