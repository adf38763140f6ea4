#pragma once

#include <span>
#include <string_view>

namespace trevandix {

/// One entry of a menu; an empty name is a separator.
struct MenuEntrySpec {
    std::string_view name;
    std::string_view caption;     ///< "&" marks the access key
    std::string_view shortcut{};  ///< as shown behind the caption, such as "Ctrl+N"; empty for none
    std::string_view hint{};      ///< what it does, in a few words
};

/// One menu of the menu bar. Without entries it is a command of its own.
struct MenuSpec {
    std::string_view name;
    std::string_view caption;
    std::span<const MenuEntrySpec> entries;
};

/// One toolbar button; `group` changes where a separator stands.
struct ToolButtonSpec {
    std::string_view key;
    std::string_view image;
    std::string_view command;  ///< name of the menu entry that it stands for
    int group;
};

/// A key of its own that stands behind no menu entry, such as "F3". It counts in the main window and in the
/// modeless windows beside it.
struct ShortcutSpec {
    std::string_view shortcut;
    std::string_view command;
};

/// Everything by which the main window offers commands.
struct CommandTables {
    std::span<const MenuSpec> menus;
    std::span<const ToolButtonSpec> buttons;
    std::span<const ShortcutSpec> shortcuts{};
};

}  // namespace trevandix
