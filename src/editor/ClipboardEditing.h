#pragma once

#include <string>
#include <string_view>

#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"

namespace trevandix {

/// Copy, cut, paste and delete, through a buffer of item references. Copy, cut and delete act on the selected
/// rows when the list has the keyboard focus, and on the selected node when the tree has it.
class ClipboardEditing {
public:
    ClipboardEditing(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    void mnuCopy_Click();
    /// Copies, then asks and deletes, even if nothing could be copied.
    void mnuCut_Click();
    void mnuPaste_Click();
    /// Asks before it deletes. Does not change the saved flag.
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
