#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/Dialog.h"
#include "table/ItemsEdit.h"

namespace trevandix {

/// Asks what many items are to get. A field shows what all of them have, or "(different)"; one that keeps
/// what it shows is left alone.
class frmChangeItems {
public:
    /// `items` are in the order in which they are to be numbered.
    frmChangeItems(const DialogContext& context, std::vector<const TreeNode*> items);

    /// What is to change; nothing when the user cancels. Shown again, it still has what was entered.
    std::optional<ChangeSet> show();

private:
    void Form_Load();
    void offerValues();
    void cmbModbusType_Click();
    void cmbDataType_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    void offer(std::string_view list, std::string ItemFields::*text, std::vector<std::string> entries);
    std::optional<ItemsEdit> entered() const;
    bool takeAddresses(ItemsEdit& edit) const;

    DialogContext context_;
    std::vector<const TreeNode*> items_;
    ItemFields common_{};  ///< what the fields show at first
    std::unique_ptr<Form> form_;
    std::optional<ChangeSet> changes_;
};

}  // namespace trevandix
