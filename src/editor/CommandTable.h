#pragma once

#include <span>
#include <string_view>

#include "editor/Enabling.h"

namespace trevandix {

class frmEditing;

/// The toolbar button of a command.
struct ToolButtonSpec {
    std::string_view key{};    ///< empty for no button
    int place = 0;             ///< order from the left; a separator follows where the tens digit changes
    std::string_view image{};  ///< empty if the image has the key's name
};

/// A command; without a name, a separator in its menu.
struct CommandSpec {
    /// Its menu; its own name if it is itself on the menu bar. Empty for a command with only an entry in the
    /// context menus or a shortcut, such as "F3", which works in the main window and its modeless windows.
    std::string_view menu;
    std::string_view name{};
    std::string_view caption{};   ///< "&" marks the access key
    std::string_view shortcut{};  ///< such as "Ctrl+N"; empty for none
    std::string_view hint{};      ///< what the command does, in a few words
    ToolButtonSpec button{};
};

/// One menu of the menu bar.
struct MenuSpec {
    std::string_view name;
    std::string_view caption;
};

/// All commands of the main window: the menus from left to right, and the commands of each menu from top to
/// bottom.
struct CommandTables {
    std::span<const MenuSpec> menus;
    std::span<const CommandSpec> commands;
};

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
