#pragma once

#include <string>

#include "editor/BulkCommands.h"
#include "editor/BulkPaste.h"
#include "editor/ClipboardEditing.h"
#include "editor/CommandTable.h"
#include "editor/DragAndDrop.h"
#include "editor/EditorContext.h"
#include "editor/FileCommands.h"
#include "editor/ObjectCommands.h"
#include "editor/Recovery.h"
#include "editor/StatusNews.h"
#include "editor/TableCommands.h"
#include "editor/TreeAndList.h"
#include "editor/Undo.h"
#include "editor/frmFind.h"
#include "editor/frmProblems.h"
#include "editor/frmRegisterMap.h"

namespace trevandix {

/// The main window's logic: owns the classes of commands and passes each event on to one of them.
class frmEditing : public MainWindowEvents {
public:
    /// The arguments must outlive the editor.
    frmEditing(Platform& platform, Configuration& configuration, ListView& list);

    /// Last step of start-up: enables the commands that need no configuration.
    void Form_Load();
    /// First action of the program: asks about unsaved work of earlier runs, then opens the file. If work was
    /// recovered, it stays open instead, and the status bar says so. An empty path opens nothing.
    void start(const std::string& filePath);
    /// Opens a file as if it had been chosen in the Open dialog.
    void openFile(const std::string& filePath);
    /// Asks about unsaved work of earlier runs. True when some was recovered and is open now.
    bool offerRecovery();

    void commandChosen(std::string_view command) override;
    void Toolbar1_ButtonClick(std::string_view key) override;
    std::vector<ContextEntry> contextEntries() const override;
    void Form_Unload() override;
    void idle(std::chrono::steady_clock::time_point now,
              std::chrono::steady_clock::time_point lastInput) override;
    void paused(const std::function<bool()>& inputWaits) override;
    void statusClicked(StatusField field) override;
    void TreeView1_NodeClick(TreeNode& node) override;
    void TreeView1_GotFocus() override;
    void TreeView1_DblClick() override;
    void treeExpansionChanged(TreeNode& node, bool expanded) override;
    void ListView1_Click() override;
    void ListView1_DblClick() override;
    void ListView1_ColumnClick(std::size_t column) override;
    bool TreeView1_MouseDown(TreeNode* node, ShiftState shift) override;
    DropEffect TreeView1_OLEStartDrag() override;
    void TreeView1_OLEDragOver(TreeNode* node) override;
    bool dropAllowed(const TreeNode* node) const override;
    void TreeView1_OLEDragDrop() override;
    void dragCancelled() override;
    void fileDropped(const std::string& filePath) override;

private:
    friend std::span<const CommandRow> commandRows();  // its handlers call the members
    /// Opens the dialog of the selected object, like a double click in the view that has the keyboard focus.
    void openObject();

    /// Handles an event of the user by `work` and updates the status bar. Ignores the event while a file is
    /// being read, because it could change the unfinished configuration.
    template <typename Work>
    void react(Work work);

    /// An event that may edit. All its edits are one step to undo.
    template <typename Work>
    void edit(Work work, std::string_view verb = {});

    StatusNews news_;
    EditorContext context_;
    TreeAndList views_;
    FileCommands file_;
    ObjectCommands objects_;
    ClipboardEditing clipboard_;
    BulkPaste bulkPaste_;
    BulkCommands bulk_;
    DragAndDrop drag_;
    TableCommands tables_;
    Undo undo_;
    frmFind find_;
    frmProblems problems_;
    frmRegisterMap map_;
    Recovery recovery_;
};

}  // namespace trevandix
