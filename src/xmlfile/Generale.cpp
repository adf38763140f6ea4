#include "xmlfile/Generale.h"

#include "platform/Text.h"

namespace trevandix {

namespace {
// A message names the first one found in this order.
constexpr std::string_view kForbidden = " .,:;\\/|";

// Of XML names, without the colon, which has a meaning of its own. The writer makes references of characters
// beyond ISO-8859-1, and no name holds one.
bool isNameStart(char32_t c) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return letter || c == '_' || (c >= 0xC0 && c <= 0xFF && c != 0xD7 && c != 0xF7);
}
bool isNamePart(char32_t c) {
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == 0xB7;
}

bool isXmlName(std::string_view name) {
    bool good = !name.empty();
    for (std::size_t at = 0; good && at < name.size();) {
        const bool first = at == 0;
        const char32_t c = nextCodePoint(name, at);
        // The name is read in capitals and so written the next time.
        good = (first ? isNameStart(c) : isNamePart(c)) && upperCased(c) <= 0xFF;
    }
    return good;
}
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

std::string faultOfBranchName(std::string_view name) {
    if (!isXmlName(name)) return " is no XML name";
    return upperCased(name) == "TAG" ? " is the name of items" : "";
}

}  // namespace trevandix
