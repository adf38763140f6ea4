#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

class TreeNode;

/// Enables menu entries and toolbar buttons.
class CommandBar {
public:
    virtual ~CommandBar() = default;
    /// `name` is an entry ("mnuCopy") or a whole menu ("mnuEdit").
    virtual void enableMenu(std::string_view name, bool enabled) = 0;
    virtual void enableButton(std::string_view key, bool enabled) = 0;
};

enum class FocusedView { None, Tree, List };

/// The fields of the status bar, from left to right.
enum class StatusField { Selection, Counts, Saved, Problems, Notice };

/// The main window without tree, list and commands.
class MainWindow {
public:
    virtual ~MainWindow() = default;
    virtual void setTreeVisible(bool visible) = 0;
    virtual FocusedView focusedView() const = 0;
    virtual void focusTree() = 0;

    /// Shows the import status panel `pnlImpStat` in front of the views, with `text` in `lblLabel`.
    virtual void showImportPanel(std::string_view text) = 0;
    virtual void hideImportPanel() = 0;
    /// The value of `pnlPercent`, 0 to 99.
    virtual void setPercent(int percent) = 0;
    /// Redraws the window; drops input that would start a command or close the window.
    virtual void processEvents() = 0;
    /// Redraws the window; input waits until the work has ended.
    virtual void redraw() = 0;

    /// Closes the window without asking.
    virtual void close() = 0;
    virtual void showAboutBox() = 0;
    /// Adds the file to the system's list of recent files. `filePath` is absolute.
    virtual void addToRecentFiles(std::string_view filePath) = 0;
    /// The field shows the first line of `text`. An empty text clears it.
    virtual void setStatus(StatusField field, std::string_view text) = 0;
};

/// Modifier keys held during a mouse event.
struct ShiftState {
    bool shift = false;
    bool control = false;
    bool alt = false;
};

/// An entry that the context menus of tree and list have besides those of the menus; without a command, a
/// separator.
struct ContextEntry {
    std::string_view command{};
    std::string caption{};  ///< with names in it, so "&" marks no access key
    bool enabled = true;
};

enum class DropEffect { Copy = 1, Move = 2 };

/// The user's actions in the main window. Implemented by the editor.
class MainWindowEvents {
public:
    virtual ~MainWindowEvents() = default;
    /// `command` is the name of a menu entry, also when it was chosen by shortcut.
    virtual void commandChosen(std::string_view command) = 0;
    virtual void Toolbar1_ButtonClick(std::string_view key) = 0;
    /// What a context menu that opens now ends with.
    virtual std::vector<ContextEntry> contextEntries() const = 0;
    /// The user clicked a field of the status bar.
    virtual void statusClicked(StatusField field) = 0;
    /// Called several times a second, even while a dialog is open. `lastInput` is the time of the user's last
    /// input.
    virtual void idle(std::chrono::steady_clock::time_point now,
                      std::chrono::steady_clock::time_point lastInput) = 0;
    /// Called several times a second while the user pauses and no command, dialog or drag is going on. What
    /// takes long must ask `inputWaits` every few milliseconds, and end when it says that the user has gone
    /// on.
    virtual void paused(const std::function<bool()>& inputWaits) = 0;
    /// The window is closing, for whatever reason.
    virtual void Form_Unload() = 0;

    /// The user selected a node by mouse or keyboard, or clicked the selected one.
    virtual void TreeView1_NodeClick(TreeNode& node) = 0;
    /// The user moved the focus to the tree by keyboard.
    virtual void TreeView1_GotFocus() = 0;
    /// Double click in the tree, or Enter.
    virtual void TreeView1_DblClick() = 0;
    /// The user expanded or collapsed a node.
    virtual void treeExpansionChanged(TreeNode& node, bool expanded) = 0;
    virtual void ListView1_Click() = 0;
    /// Double click in the list, or Enter.
    virtual void ListView1_DblClick() = 0;
    /// `column` counts from 0.
    virtual void ListView1_ColumnClick(std::size_t column) = 0;

    /// The right button was pressed on a node (nullptr: beside all nodes). True when a drag may start.
    virtual bool TreeView1_MouseDown(TreeNode* node, ShiftState shift) = 0;
    /// A drag starts. Returns its effect.
    virtual DropEffect TreeView1_OLEStartDrag() = 0;
    /// The pointer is over `node` (nullptr: over none).
    virtual void TreeView1_OLEDragOver(TreeNode* node) = 0;
    /// True when `node` would accept a drop. Affects only the pointer shown.
    virtual bool dropAllowed(const TreeNode* node) const = 0;
    virtual void TreeView1_OLEDragDrop() = 0;
    /// The drag ended without a drop.
    virtual void dragCancelled() = 0;

    /// A file was dropped on the window from another program. `filePath` is the system's path in UTF-8.
    virtual void fileDropped(const std::string& filePath) = 0;
};

}  // namespace trevandix
