#pragma once

#include <functional>
#include <initializer_list>
#include <utility>

#include "dialogs/Dialog.h"
#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"

namespace trevandix {

/// The Add commands and the double click. Each opens the property dialog of a record and then updates tree
/// and list. A command does nothing when the selected node is of a kind that it is not for.
class ObjectCommands {
public:
    /// `dialogChanged` is called after each change by a dialog that stays open.
    ObjectCommands(const EditorContext& context, TreeAndList& views, std::function<void()> dialogChanged)
        : context_(context), views_(views), dialogChanged_(std::move(dialogChanged)) {}

    void mnuAddMBType_Click();
    void mnuAddPlc_Click();
    void mnuAddBranch_Click();
    void mnuAddItem_Click();
    /// Opens the dialog of the selected node's record in edit mode.
    void TreeView1_DblClick();

private:
    DialogContext dialogContext() const;
    /// The selected node of an open configuration when its tag is one of these, else nullptr.
    TreeNode* selectedOf(std::initializer_list<NodeTag> tags) const;
    /// The same for an Add command. If it returns nullptr, the status bar says that `wanted` is not selected.
    TreeNode* targetOf(std::initializer_list<NodeTag> tags, std::string_view wanted) const;
    void showSelected(TreeNode& node);
    void editRecordOf(TreeNode& node);
    void editItem(TreeNode& node);

    const EditorContext& context_;
    TreeAndList& views_;
    std::function<void()> dialogChanged_;
};

}  // namespace trevandix
