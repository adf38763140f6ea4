#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "dialogs/Dialog.h"

namespace trevandix {

/// Asks for the name of a new branch below the selected node, or of the selected branch.
class frmBranch {
public:
    explicit frmBranch(const DialogContext& context) : context_(context) {}

    /// The branch to add below the selected node; nothing when the user cancels.
    std::optional<clsBranch> showToAdd();
    /// Renames the selected branch.
    void showToEdit();

private:
    void show(std::string_view name);
    void cmdOk_Click();
    void cmdCancel_Click();

    DialogContext context_;
    std::unique_ptr<Form> form_;
    bool edit_ = false;
    std::optional<clsBranch> added_;
};

}  // namespace trevandix
