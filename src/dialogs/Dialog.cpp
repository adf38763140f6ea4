#include "dialogs/Dialog.h"

#include "xmlfile/Generale.h"

namespace trevandix {

bool CheckDuplNames(NodeTag tag, std::string_view name, const StructureTree& tree, bool edit,
                    Messages& messages) {
    bool unused = false;
    reportErrors(messages, "CheckDuplNames", [&] {
        const TreeNode* selected = tree.selected();
        const TreeNode* container = edit && selected != nullptr ? selected->parent() : selected;
        if (container == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
        unused = passes(duplicateName(*container, tag, name, selected), messages);
    });
    return unused;
}

}  // namespace trevandix
