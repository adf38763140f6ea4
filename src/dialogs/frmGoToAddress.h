#pragma once

#include <memory>
#include <string>

#include "dialogs/Dialog.h"

namespace trevandix {

/// Asks for an address and finds the item that lies there.
class frmGoToAddress {
public:
    explicit frmGoToAddress(const DialogContext& context) : context_(context) {}

    /// The item; nullptr when the user cancels. Begins with the address of `node`, if that is an item, and
    /// its unit. Where nothing lies, the dialog says what is next to it and stays open.
    const TreeNode* show(const TreeNode* node);

private:
    void Form_Load(const TreeNode* node);
    void cmdOk_Click();
    void cmdCancel_Click();
    std::string search();

    DialogContext context_;
    std::unique_ptr<Form> form_;
    const TreeNode* found_ = nullptr;
};

}  // namespace trevandix
