#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "dialogs/Dialog.h"
#include "table/LineSettings.h"

namespace trevandix {

/// Asks for the settings of all units on a serial port. A field shows what all of them have, or
/// "(different)"; one that keeps what it shows is left alone.
class frmLineSettings {
public:
    /// `port` is the one to begin with, if a unit has it.
    frmLineSettings(const DialogContext& context, std::string_view port);

    /// What is to change; nothing when the user cancels. Shown again, it still has what was entered.
    std::optional<ChangeSet> show();

private:
    void Form_Load(std::string_view port);
    void cmbPort_Click();
    void cmdOk_Click();
    void cmdCancel_Click();

    DialogContext context_;
    UnitFields common_{};  ///< what the fields show at first
    std::unique_ptr<Form> form_;
    std::optional<ChangeSet> changes_;
};

}  // namespace trevandix
