#include "xmlfile/Generale.h"

#include <string>

namespace trevandix {

namespace {
// A message names the first one found in this order.
constexpr std::string_view kForbidden = " .,:;\\/|";
}  // namespace

std::optional<Refusal> forbiddenCharacter(std::string_view name) {
    for (const char character : kForbidden) {
        if (name.find(character) == std::string_view::npos) continue;
        std::string text("Character (");
        ((text += character) += ") not acceptable in string ") += name;
        return Refusal{"name", text};
    }
    return std::nullopt;
}

std::optional<Refusal> duplicateName(const TreeNode& container, NodeTag tag, std::string_view name,
                                     const TreeNode* edited) {
    if (StructureTree::childNamed(container, tag, name, edited) == nullptr) return std::nullopt;
    return Refusal{"name", "Name already existing. Please use a different name"};
}

}  // namespace trevandix
