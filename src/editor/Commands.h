#pragma once

#include <span>
#include <string_view>

namespace trevandix {

/// Where a command stands in the toolbar.
struct ToolButtonSpec {
    std::string_view key{};    ///< empty for no button
    int place = 0;             ///< from the left; a separator stands where the tens change
    std::string_view image{};  ///< empty for an image of the key's name
};

/// A command, or a separator of its menu if it has no name.
struct CommandSpec {
    /// The menu that it stands in, or the command's own name for a menu that is nothing but this command.
    /// Empty for a key alone, such as "F3", which counts in the main window and in the modeless windows
    /// beside it.
    std::string_view menu;
    std::string_view name{};
    std::string_view caption{};   ///< "&" marks the access key
    std::string_view shortcut{};  ///< as shown behind the caption, such as "Ctrl+N"; empty for none
    std::string_view hint{};      ///< what it does, in a few words
    ToolButtonSpec button{};
};

/// One menu of the menu bar.
struct MenuSpec {
    std::string_view name;
    std::string_view caption;
};

/// Everything by which the main window offers commands: the menus from the left, the commands of each menu
/// from the top.
struct CommandTables {
    std::span<const MenuSpec> menus;
    std::span<const CommandSpec> commands;
};

}  // namespace trevandix
