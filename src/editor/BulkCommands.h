#pragma once

#include <string_view>
#include <vector>

#include "dialogs/Dialog.h"
#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"

namespace trevandix {

/// The commands that change or add many objects at once, and Go to Address. Each asks in a dialog, shows what
/// would change, and does it as one step. They act on the selected rows when the list has the keyboard focus,
/// else on the selected node, and do nothing when these are of a kind that they are not for.
class BulkCommands {
public:
    BulkCommands(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    void mnuChangeItems_Click();
    /// Of a branch or a unit.
    void mnuDuplicate_Click();
    void mnuLineSettings_Click();
    void mnuGoToAddress_Click();
    std::vector<ContextEntry> contextEntries() const;

private:
    std::vector<const TreeNode*> chosen() const;
    TreeNode* current() const;
    bool duplicable(NodeTag tag) const;
    bool hasUnits() const;
    bool hasLines() const;
    void select(TreeNode& node);
    DialogContext dialogContext() const;

    const EditorContext& context_;
    TreeAndList& views_;
};

}  // namespace trevandix
