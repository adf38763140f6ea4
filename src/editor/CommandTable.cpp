#include "editor/CommandTable.h"

#include <array>

namespace trevandix {

namespace {

constexpr MenuEntrySpec kSeparator{"", "-"};

constexpr std::array kFile{
    MenuEntrySpec{"mnuNewCfg", "&New Configuration", "Ctrl+N", "Start an empty configuration"},
    MenuEntrySpec{"mnuOpenCfg", "&Open Configuration", "Ctrl+O", "Open a configuration file"},
    kSeparator,
    MenuEntrySpec{"mnuSaveCfg", "&Save Configuration", "Ctrl+S", "Save and publish the configuration"},
    MenuEntrySpec{"mnuSaveAs", "Save Configuration &As", "Ctrl+Shift+S",
                  "Save under another name and publish it"},
    kSeparator,
    MenuEntrySpec{"mnuCloseCfg", "&Close Configuration", "", "Close the configuration"},
    MenuEntrySpec{"mnuExit", "E&xit", "", "Leave the program"},
};
constexpr std::array kObjects{
    MenuEntrySpec{"mnuAddMBType", "&Add ModBus Type", "", "Add a Modbus data type"},
    kSeparator,
    MenuEntrySpec{"mnuAddPlc", "Add &Unit", "", "Add a unit"},
    MenuEntrySpec{"mnuAddBranch", "Add &Branch", "", "Add a branch below the selected unit or branch"},
    MenuEntrySpec{"mnuAddItem", "Add &Item", "", "Add items below the selected unit or branch"},
};
constexpr std::array kEdit{
    MenuEntrySpec{"mnuCopy", "&Copy", "Ctrl+C", "Copy the selected items"},
    MenuEntrySpec{"mnuCut", "Cu&t", "Ctrl+X", "Copy the selected items and delete them"},
    MenuEntrySpec{"mnuPaste", "&Paste", "Ctrl+V", "Paste the copied items into the selected branch"},
    MenuEntrySpec{"mnuDelete", "&Delete Object", "Del", "Delete the selected objects"},
    kSeparator,
    MenuEntrySpec{"mnuPasteName", "Paste Item names from Clipboard", "", "Rename the selected items"},
    MenuEntrySpec{"mnuPasteComment", "Paste Item comments from Clipboard", "", "Comment the selected items"},
};
constexpr std::array kView{
    MenuEntrySpec{"mnuIcon", "&Icon", "", "Show large icons"},
    MenuEntrySpec{"mnuSmallIcon", "&SmallIcon", "", "Show small icons"},
    MenuEntrySpec{"mnuList", "&List", "", "Show a list"},
    MenuEntrySpec{"mnuReport", "&Report", "", "Show all columns"},
};
constexpr std::array kTools{
    MenuEntrySpec{"mnuFind", "&Find", "Ctrl+F", "Find an object by the beginning of its name"},
};

constexpr std::array kMenus{
    MenuSpec{"mnuFile", "&File", kFile},    MenuSpec{"mnuObjects", "&Objects", kObjects},
    MenuSpec{"mnuEdit", "&Edit", kEdit},    MenuSpec{"mnuView", "&View", kView},
    MenuSpec{"mnuTools", "&Tools", kTools}, MenuSpec{"mnuAbout", "&About", {}},
};

// Two buttons show images of other names: kept, the images carry those names from the start.
constexpr std::array kButtons{
    ToolButtonSpec{"new", "new", "mnuNewCfg", 0},
    ToolButtonSpec{"open", "open", "mnuOpenCfg", 0},
    ToolButtonSpec{"save", "save", "mnuSaveCfg", 0},
    ToolButtonSpec{"close", "close", "mnuCloseCfg", 0},
    ToolButtonSpec{"modbus", "modbus", "mnuAddMBType", 1},
    ToolButtonSpec{"plc", "plc", "mnuAddPlc", 1},
    ToolButtonSpec{"branch", "branch", "mnuAddBranch", 1},
    ToolButtonSpec{"item", "item", "mnuAddItem", 1},
    ToolButtonSpec{"copy", "copy", "mnuCopy", 2},
    ToolButtonSpec{"cut", "cut", "mnuCut", 2},
    ToolButtonSpec{"paste", "paste", "mnuPaste", 2},
    ToolButtonSpec{"delete", "delete", "mnuDelete", 2},
    ToolButtonSpec{"icon", "icon", "mnuIcon", 3},
    ToolButtonSpec{"smallicon", "smallicon", "mnuSmallIcon", 3},
    ToolButtonSpec{"list", "list", "mnuList", 3},
    ToolButtonSpec{"report", "report", "mnuReport", 3},
    ToolButtonSpec{"find", "find", "mnuFind", 4},
    ToolButtonSpec{"exit", "exit", "mnuExit", 4},
    ToolButtonSpec{"pastitem", "pastename", "mnuPasteName", 5},
    ToolButtonSpec{"pastcomment", "pastecomment", "mnuPasteComment", 5},
};

constexpr std::array kShortcuts{
    ShortcutSpec{"F2", "openObject"},
    ShortcutSpec{"F3", "cmdNext"},  // Find Next; does nothing unless the find window is open
};

}  // namespace

const CommandTables& commandTables() {
    static constexpr CommandTables kTables{kMenus, kButtons, kShortcuts};
    return kTables;
}

}  // namespace trevandix
