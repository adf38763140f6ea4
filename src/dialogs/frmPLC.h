#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "dialogs/Dialog.h"

namespace trevandix {

/// Adds a unit or edits the selected one, for either interface kind.
class frmPLC {
public:
    explicit frmPLC(const DialogContext& context) : context_(context) {}

    /// The unit to add; nothing when the user cancels.
    std::optional<clsPLC> showToAdd();
    /// `record` is the one under the selected node's key.
    void showToEdit(std::shared_ptr<const clsPLC> record) { show(std::move(record)); }

private:
    void show(std::shared_ptr<const clsPLC> edited);
    void Form_Load();
    void loadRecord();
    void cmdOk_Click();
    void cmdCancel_Click();
    bool CheckFields(const UnitFields& unit);
    void changeUnit(clsPLC record);

    DialogContext context_;
    std::unique_ptr<Form> form_;
    std::shared_ptr<const clsPLC> edited_;  ///< nullptr while a unit is added
    std::optional<clsPLC> added_;
};

}  // namespace trevandix
