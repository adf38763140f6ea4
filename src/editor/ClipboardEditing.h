#pragma once

#include <string>
#include <string_view>

#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"

namespace trevandix {

/// Copy, cut, paste and delete through the buffer of item references. The list with several rows and the tree
/// with its selected node are two ways kept apart; which one a command goes depends on the keyboard focus.
class ClipboardEditing {
public:
    ClipboardEditing(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    void mnuCopy_Click();
    /// Deletes after asking even when nothing could be copied.
    void mnuCut_Click();
    void mnuPaste_Click();
    /// Leaves the saved flag alone.
    void mnuDelete_Click();

private:
    void copyRows();
    void copyNode(const TreeNode& node);
    void paste();
    void pasteInto(TreeNode& branch);
    void deleteRows(TreeNode& branch);
    void deleteNode(TreeNode& node);
    void deleteUnit(TreeNode& node);
    void showSelected();
    void deleteItem(TreeNode& node);
    void say(std::string_view text) const { context_.platform.messages.show(text); }
    bool confirms(const std::string& question) const { return context_.platform.messages.confirms(question); }

    const EditorContext& context_;
    TreeAndList& views_;
};

}  // namespace trevandix
