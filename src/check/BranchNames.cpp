#include "check/BranchNames.h"

#include "check/Wording.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

// Of XML names, without the colon, which has a meaning of its own. The writer makes references of characters
// beyond ISO-8859-1, and no name holds one.
bool isNameStart(char32_t c) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return letter || c == '_' || (c >= 0xC0 && c <= 0xFF && c != 0xD7 && c != 0xF7);
}
bool isNamePart(char32_t c) {
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == 0xB7;
}

}  // namespace

std::string branchFault(std::string_view name) {
    if (name.empty()) return "branch name is empty";
    if (name.front() == ' ' || name.back() == ' ') return "branch name has a blank at its end";
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t begin = at;
        const char32_t c = nextCodePoint(name, at);
        // Its capital is what would be written the next time.
        const bool fits = (begin == 0 ? isNameStart(c) : isNamePart(c)) && upperCased(c) <= 0xFF;
        if (fits) continue;
        return std::string(begin == 0 ? "branch name begins with " : "branch name holds ") +
               quoted(name.substr(begin, at - begin));
    }
    return {};
}

std::string tagFault(std::string_view name) {
    constexpr std::string_view kItemElement = "TAG";
    const bool taken = name.size() == kItemElement.size() && upperCased(name) == kItemElement;
    return taken ? "branch name is the name of items" : "";
}

}  // namespace trevandix
