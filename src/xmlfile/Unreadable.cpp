#include "xmlfile/Unreadable.h"

#include <algorithm>

#include "platform/Text.h"

namespace trevandix {

namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

// What ends a value too early, or may not be in one; empty when all is well.
std::string faultOf(std::string_view text, bool attribute) {
    if (std::ranges::any_of(text, isControl)) return " holds a control character";
    const std::size_t place = text.find_first_of(attribute ? "&<\"" : "&<");
    if (place == std::string_view::npos) return {};
    return text[place] == '"' ? " holds a quotation mark" : std::string(" holds \"") + text[place] + '"';
}

// Of XML names, without the colon, which has a meaning of its own. The writer makes references of characters
// beyond ISO-8859-1, and no name holds one.
bool isNameStart(char32_t c) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return letter || c == '_' || (c >= 0xC0 && c <= 0xFF && c != 0xD7 && c != 0xF7);
}
bool isNamePart(char32_t c) {
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == 0xB7;
}

std::string faultOfBranch(std::string_view name) {
    bool xmlName = !name.empty();
    for (std::size_t at = 0; xmlName && at < name.size();) {
        const bool first = at == 0;
        const char32_t c = nextCodePoint(name, at);
        xmlName = first ? isNameStart(c) : isNamePart(c);
    }
    if (!xmlName) return " is no XML name";
    return upperCased(name) == "TAG" ? " is the name of items" : "";
}

}  // namespace

std::string whatMakesUnreadable(const Configuration& configuration) {
    std::string found;
    const auto check = [&](const Key& key, std::string_view what, const std::string& fault) {
        if (found.empty() && !fault.empty()) found = (std::string(key.view()) += ": ").append(what) + fault;
    };
    const bool attributes = configuration.state.interfaceKind == kTcpIp;
    for (const auto& [key, unit] : configuration.units) {
        check(key, "unit name", faultOf(unit->getName(), attributes));
        if (attributes) {
            check(key, "unit address", faultOf(unit->getAddress(), true));
            continue;
        }
        for (const std::string* setting : {&unit->getCom(), &unit->getParity(), &unit->getFlowCtl()})
            check(key, "port setting", faultOf(*setting, false));
    }
    for (const auto& [key, branch] : configuration.branches)
        check(key, "branch name", faultOfBranch(branch->sName()));
    for (const auto& [key, item] : configuration.items) {
        check(key, "item name", faultOf(item->sName(), false));
        check(key, "comment", faultOf(item->sComment(), false));
        check(key, "access right", faultOf(item->sAccessRight(), false));
    }
    return found;
}

}  // namespace trevandix
