#pragma once

#include <span>

#include "editor/Commands.h"
#include "editor/Enabling.h"

namespace trevandix {

class frmEditing;

/// Everything about a command: how the window offers it, when it is usable, what it does.
struct CommandRow : CommandSpec {
    using Handler = void (*)(frmEditing&);
    EnablingFlag flag = kAlways;
    Handler run = [](frmEditing&) {};
    std::string_view verb{};  ///< of its step to undo, where its edits do not tell
};
/// The verb of a command that is no step.
inline constexpr std::string_view kNoStep = "-";

/// The commands of every menu from the top, then those that only a key runs.
std::span<const CommandRow> commandRows();
/// nullptr for an unknown name.
const CommandRow* commandNamed(std::string_view name);
const CommandRow* commandOfButton(std::string_view key);

/// The menu bar and the toolbar of the main window.
const CommandTables& commandTables();

}  // namespace trevandix
