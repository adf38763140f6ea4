#include "xmlfile/Generale.h"

#include <string>

#include "platform/RuntimeError.h"

namespace trevandix {

namespace {
// The order decides which one a message names.
constexpr std::string_view kForbidden = " .,:;\\/|";
}  // namespace

bool checkForbiddenCharacters(std::string_view name, Messages& messages) {
    for (const char character : kForbidden) {
        if (name.find(character) == std::string_view::npos) continue;
        std::string text("Character (");
        ((text += character) += ") not acceptable in string ") += name;
        messages.show(text);
        return false;
    }
    return true;
}

bool CheckDuplNames(NodeTag tag, std::string_view name, const StructureTree& tree, bool edit,
                    Messages& messages) {
    bool unused = false;
    reportErrors(messages, "CheckDuplNames", [&] {
        const TreeNode* selected = tree.selected();
        const TreeNode* container = edit && selected != nullptr ? selected->parent() : selected;
        if (container == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
        unused = StructureTree::childNamed(*container, tag, name, selected) == nullptr;
        if (!unused) messages.show("Name already existing. Please use a different name");
    });
    return unused;
}

}  // namespace trevandix
