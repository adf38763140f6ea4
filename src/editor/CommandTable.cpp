#include "editor/CommandTable.h"

#include <algorithm>
#include <array>
#include <vector>

#include "editor/frmEditing.h"

namespace trevandix {

namespace {

constexpr std::array kMenus{
    MenuSpec{"mnuFile", "&File"}, MenuSpec{"mnuObjects", "&Objects"}, MenuSpec{"mnuEdit", "&Edit"},
    MenuSpec{"mnuView", "&View"}, MenuSpec{"mnuTools", "&Tools"},     MenuSpec{"mnuAbout", "&About"},
};

constexpr CommandRow row(std::string_view menu, std::string_view name, std::string_view caption,
                         std::string_view shortcut, std::string_view hint, ToolButtonSpec button,
                         EnablingFlag flag, CommandRow::Handler run, std::string_view verb = {}) {
    return {{menu, name, caption, shortcut, hint, button}, flag, run, verb};
}
constexpr CommandRow separator(std::string_view menu) {
    return {{menu}};
}

template <typename Fits>
const CommandRow* firstRow(Fits fits) {
    const auto rows = commandRows();
    const auto row = std::ranges::find_if(rows, fits);
    return row == rows.end() ? nullptr : &*row;
}

}  // namespace

std::span<const CommandRow> commandRows() {
    using F = frmEditing;
    // Menu, name, caption, shortcut, hint, button (key, place, image of another name), flag, handler
    static constexpr std::array kRows{
        row("mnuFile", "mnuNewCfg", "&New Configuration", "Ctrl+N", "Start an empty configuration",
            {"new", 11}, fileO, [](F& f) { f.file_.mnuNewCfg_Click(); }),
        row("mnuFile", "mnuOpenCfg", "&Open Configuration", "Ctrl+O", "Open a configuration file",
            {"open", 12}, fileO, [](F& f) { f.file_.mnuOpenCfg_Click(); }),
        separator("mnuFile"),
        row("mnuFile", "mnuSaveCfg", "&Save Configuration", "Ctrl+S", "Save and publish the configuration",
            {"save", 13}, fileS, [](F& f) { f.file_.mnuSaveCfg_Click(); }),
        row("mnuFile", "mnuSaveAs", "Save Configuration &As", "Ctrl+Shift+S",
            "Save under another name and publish it", {}, fileS, [](F& f) { f.file_.mnuSaveAs_Click(); }),
        separator("mnuFile"),
        row("mnuFile", "mnuCloseCfg", "&Close Configuration", "", "Close the configuration", {"close", 14},
            fileS, [](F& f) { f.file_.mnuCloseCfg_Click(); }),
        row("mnuFile", "mnuExit", "E&xit", "", "Leave the program", {"exit", 52}, kAlways,
            [](F& f) { f.file_.mnuExit_Click(); }),

        row("mnuObjects", "mnuAddMBType", "&Add ModBus Type", "", "Add a Modbus data type", {"modbus", 21},
            ambO, [](F& f) { f.objects_.mnuAddMBType_Click(); }),
        separator("mnuObjects"),
        row("mnuObjects", "mnuAddPlc", "Add &Unit", "", "Add a unit", {"plc", 22}, aplO,
            [](F& f) { f.objects_.mnuAddPlc_Click(); }),
        row("mnuObjects", "mnuAddBranch", "Add &Branch", "", "Add a branch below the selected unit or branch",
            {"branch", 23}, abrO, [](F& f) { f.objects_.mnuAddBranch_Click(); }),
        row("mnuObjects", "mnuAddItem", "Add &Item", "", "Add items below the selected unit or branch",
            {"item", 24}, aitO, [](F& f) { f.objects_.mnuAddItem_Click(); }),

        row("mnuEdit", "mnuCopy", "&Copy", "Ctrl+C", "Copy the selected items", {"copy", 31}, cpyO,
            [](F& f) { f.clipboard_.mnuCopy_Click(); }),
        row(
            "mnuEdit", "mnuCut", "Cu&t", "Ctrl+X", "Copy the selected items and delete them", {"cut", 32},
            cutO, [](F& f) { f.clipboard_.mnuCut_Click(); }, "Cut"),
        row(
            "mnuEdit", "mnuPaste", "&Paste", "Ctrl+V", "Paste the copied items into the selected branch",
            {"paste", 33}, pstO, [](F& f) { f.clipboard_.mnuPaste_Click(); }, "Paste"),
        row("mnuEdit", "mnuDelete", "&Delete Object", "Del", "Delete the selected objects", {"delete", 34},
            dltO, [](F& f) { f.clipboard_.mnuDelete_Click(); }),
        separator("mnuEdit"),
        row("mnuEdit", "mnuPasteName", "Paste Item names from Clipboard", "", "Rename the selected items",
            {"pastitem", 61, "pastename"}, pNa, [](F& f) { f.bulkPaste_.mnuPasteName_Click(); }),
        row("mnuEdit", "mnuPasteComment", "Paste Item comments from Clipboard", "",
            "Comment the selected items", {"pastcomment", 62, "pastecomment"}, pCo,
            [](F& f) { f.bulkPaste_.mnuPasteComment_Click(); }),

        row("mnuView", "mnuIcon", "&Icon", "", "Show large icons", {"icon", 41}, vewO,
            [](F& f) { f.views_.setMode(ListMode::Icon); }),
        row("mnuView", "mnuSmallIcon", "&SmallIcon", "", "Show small icons", {"smallicon", 42}, vewO,
            [](F& f) { f.views_.setMode(ListMode::SmallIcon); }),
        row("mnuView", "mnuList", "&List", "", "Show a list", {"list", 43}, vewO,
            [](F& f) { f.views_.setMode(ListMode::List); }),
        row("mnuView", "mnuReport", "&Report", "", "Show all columns", {"report", 44}, vewO,
            [](F& f) { f.views_.setMode(ListMode::Report); }),

        row("mnuTools", "mnuFind", "&Find", "Ctrl+F", "Find an object by the beginning of its name",
            {"find", 51}, tolO, [](F& f) { f.find_.mnuFind_Click(); }),

        row("mnuAbout", "mnuAbout", "&About", "", "Version and maker", {}, kAlways,
            [](F& f) { f.context_.platform.window.showAboutBox(); }),

        row("", "openObject", "", "F2", "", {}, kAlways, [](F& f) { f.openObject(); }),
        // In the context menus of tree and list
        row(
            "", "mnuUndo", "", "Ctrl+Z", "", {}, kAlways, [](F& f) { f.undo_.mnuUndo_Click(); }, kNoStep),
        row(
            "", "mnuRedo", "", "Ctrl+Y", "", {}, kAlways, [](F& f) { f.undo_.mnuRedo_Click(); }, kNoStep),
        row(
            "", "redo", "", "Ctrl+Shift+Z", "", {}, kAlways, [](F& f) { f.undo_.mnuRedo_Click(); }, kNoStep),
        row("", "mnuChangeItems", "", "Ctrl+E", "", {}, kAlways,
            [](F& f) { f.bulk_.mnuChangeItems_Click(); }),
        row("", "mnuDuplicate", "", "Ctrl+D", "", {}, kAlways, [](F& f) { f.bulk_.mnuDuplicate_Click(); }),
        row("", "mnuLineSettings", "", "Ctrl+L", "", {}, kAlways,
            [](F& f) { f.bulk_.mnuLineSettings_Click(); }),
        row(
            "", "mnuGoToAddress", "", "Ctrl+G", "", {}, kAlways, [](F& f) { f.bulk_.mnuGoToAddress_Click(); },
            kNoStep),
        row(
            "", "mnuRegisterMap", "", "F9", "", {}, kAlways, [](F& f) { f.map_.mnuRegisterMap_Click(); },
            kNoStep),
        row(
            "", "mnuPublish", "", "Ctrl+Shift+P", "", {}, kAlways, [](F& f) { f.file_.mnuPublish_Click(); },
            kNoStep),
        row(
            "", "mnuProblems", "", "Ctrl+F8", "", {}, kAlways, [](F& f) { f.problems_.mnuProblems_Click(); },
            kNoStep),
        row(
            "", "nextProblem", "", "F8", "", {}, kAlways, [](F& f) { f.problems_.nextProblem(); }, kNoStep),
        row(
            "", "previousProblem", "", "Shift+F8", "", {}, kAlways,
            [](F& f) { f.problems_.previousProblem(); }, kNoStep),
        row(
            "", "mnuCopyTable", "", "Ctrl+Shift+C", "", {}, kAlways,
            [](F& f) { f.tables_.mnuCopyTable_Click(); }, kNoStep),
        row(
            "", "mnuPasteTable", "", "Ctrl+Shift+V", "", {}, kAlways,
            [](F& f) { f.tables_.mnuPasteTable_Click(); }, kNoStep),
        row(
            "", "mnuExportTable", "", "", "", {}, kAlways, [](F& f) { f.tables_.mnuExportTable_Click(); },
            kNoStep),
        row(
            "", "mnuImportTable", "", "", "", {}, kAlways, [](F& f) { f.tables_.mnuImportTable_Click(); },
            kNoStep),
        // Find Next; does nothing unless the find window is open
        row("", "cmdNext", "", "F3", "", {}, kAlways, [](F& f) { f.find_.findNextByKey(); }),
    };
    return kRows;
}

const CommandRow* commandNamed(std::string_view name) {
    return firstRow([&](const CommandRow& row) { return row.name == name; });
}

const CommandRow* commandOfButton(std::string_view key) {
    return firstRow([&](const CommandRow& row) { return row.button.key == key; });
}

const CommandTables& commandTables() {
    static const std::vector<CommandSpec> kCommands(commandRows().begin(), commandRows().end());
    static const CommandTables kTables{kMenus, kCommands};
    return kTables;
}

}  // namespace trevandix
