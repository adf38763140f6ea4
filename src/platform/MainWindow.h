#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace trevandix {

class TreeNode;

/// Menu entries and toolbar buttons, by name.
class CommandBar {
public:
    virtual ~CommandBar() = default;
    /// `name` is an entry ("mnuCopy") or a whole menu ("mnuEdit").
    virtual void enableMenu(std::string_view name, bool enabled) = 0;
    virtual void enableButton(std::string_view key, bool enabled) = 0;
};

enum class FocusedView { None, Tree, List };

/// The fields of the status bar, from the left.
enum class StatusField { Selection, Counts, Saved, Notice };

/// What the editor needs of its main window besides tree, list and commands.
class MainWindow {
public:
    virtual ~MainWindow() = default;
    virtual void setTreeVisible(bool visible) = 0;
    virtual FocusedView focusedView() const = 0;
    virtual void focusTree() = 0;

    /// The import status panel `pnlImpStat`, in front of everything else.
    virtual void showImportPanel(bool visible) = 0;
    /// The state of `pnlPercent`, 0 to 99.
    virtual void setPercent(int percent) = 0;
    /// Lets the window draw and react; input that would start a command or close the window is dropped.
    virtual void processEvents() = 0;

    /// Ends the window for good, asking nothing more.
    virtual void close() = 0;
    virtual void showAboutBox() = 0;
    /// Quiet news that hold nobody up; the first line is the one that shows. An empty text clears the field.
    virtual void setStatus(StatusField field, std::string_view text) = 0;
};

/// Which keys were down with a mouse event.
struct ShiftState {
    bool shift = false;
    bool control = false;
    bool alt = false;
};

enum class DropEffect { Copy = 1, Move = 2 };

/// What the main window reports of its user. Implemented by the editor.
class MainWindowEvents {
public:
    virtual ~MainWindowEvents() = default;
    /// A menu entry or shortcut; `command` is the menu entry's name.
    virtual void commandChosen(std::string_view command) = 0;
    virtual void Toolbar1_ButtonClick(std::string_view key) = 0;
    /// Every second, also while a dialog is open; `lastInput` is when the user last did anything.
    virtual void idle(std::chrono::steady_clock::time_point now,
                      std::chrono::steady_clock::time_point lastInput) = 0;
    /// False until the window's initial layout stands; the window scales nothing before.
    virtual bool loading() const = 0;
    /// The window is closing, by whatever means.
    virtual void Form_Unload() = 0;

    /// The user picked a node, by mouse or keyboard, the selected one included.
    virtual void TreeView1_NodeClick(TreeNode& node) = 0;
    /// The keyboard came back to the tree by a key.
    virtual void TreeView1_GotFocus() = 0;
    /// Double click in the tree, or Enter.
    virtual void TreeView1_DblClick() = 0;
    /// The user opened or closed a node.
    virtual void treeExpansionChanged(TreeNode& node, bool expanded) = 0;
    virtual void ListView1_Click() = 0;
    /// Double click in the list, or Enter.
    virtual void ListView1_DblClick() = 0;
    /// `column` counts from 0.
    virtual void ListView1_ColumnClick(std::size_t column) = 0;

    /// The right button went down on a node (nullptr beside all nodes). True when a drag may start.
    virtual bool TreeView1_MouseDown(TreeNode* node, ShiftState shift) = 0;
    /// A drag starts: the effect that it is allowed.
    virtual DropEffect TreeView1_OLEStartDrag() = 0;
    /// The pointer is over `node` (nullptr: over none).
    virtual void TreeView1_OLEDragOver(TreeNode* node) = 0;
    /// True when a drop on `node` would be accepted; only for what the pointer shows.
    virtual bool dropAllowed(const TreeNode* node) const = 0;
    virtual void TreeView1_OLEDragDrop() = 0;
    /// The drag ended without a drop.
    virtual void dragCancelled() = 0;

    /// A file was dropped on the window from another program. `filePath` as the system gives it.
    virtual void fileDropped(const std::string& filePath) = 0;
};

}  // namespace trevandix
