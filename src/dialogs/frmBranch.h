#pragma once

#include <memory>
#include <string_view>

#include "dialogs/Dialog.h"

namespace trevandix {

/// Asks for the name of a new branch below the selected node, or of the selected branch.
class frmBranch {
public:
    explicit frmBranch(const DialogContext& context) : context_(context) {}

    /// True when a branch was added: the last one of its collection, still without a node.
    bool showToAdd();
    /// Renames the selected branch.
    void showToEdit();

private:
    void show(std::string_view name);
    void cmdOk_Click();
    void cmdCancel_Click();
    void renameBranch(TreeNode& node, const std::string& name);

    DialogContext context_;
    std::unique_ptr<Form> form_;
    bool edit_ = false;
    bool added_ = false;
};

}  // namespace trevandix
