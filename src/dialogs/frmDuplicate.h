#pragma once

#include <memory>
#include <optional>
#include <string>

#include "dialogs/Dialog.h"
#include "table/Duplication.h"

namespace trevandix {

/// Asks how copies of a branch or a unit are to differ from it.
class frmDuplicate {
public:
    frmDuplicate(const DialogContext& context, TreeNode& node);

    /// What is to be added; nothing when the user cancels. Shown again, it still has what was entered.
    std::optional<ChangeSet> show();

private:
    void Form_Load();
    void cmdOk_Click();
    void cmdCancel_Click();
    std::string freeName() const;
    std::string freeIdentifier() const;
    std::optional<Duplication> entered() const;

    DialogContext context_;
    TreeNode& node_;
    std::unique_ptr<Form> form_;
    std::optional<ChangeSet> changes_;
};

}  // namespace trevandix
