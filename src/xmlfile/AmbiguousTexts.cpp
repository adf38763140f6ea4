#include "xmlfile/AmbiguousTexts.h"

#include <algorithm>
#include <unordered_set>

#include "model/TypeNames.h"
#include "platform/Text.h"
#include "xmlfile/FileText.h"
#include "xmlfile/Latin1File.h"

namespace trevandix {

namespace {

bool isSpecial(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte >= 0x80 || c == '&' || c == '<' || c == '>' || c == '"';
}

bool decodesTo(std::string bytes, References references, std::string_view text) {
    std::string decoded = utf8FromLatin1(std::move(bytes));
    decoded.resize(decodeReferences(decoded.data(), decoded.size(), references));
    return decoded == text;
}

bool holdsBoth(std::string_view text, std::string_view first, std::string_view behind) {
    const std::size_t place = text.find(first);
    return place != std::string_view::npos && text.find(behind, place) != std::string_view::npos;
}

bool comesBack(std::string_view text) {
    using namespace std::string_view_literals;
    if (text.find_first_of("\r\n\0"sv) != std::string_view::npos) return false;
    std::string bytes;
    appendLatin1(bytes, text);
    return decodesTo(bytes, References::Writer, text) && decodesTo(std::move(bytes), References::Xml, text);
}

bool elementComesBack(std::string_view text, std::string_view name) {
    if (std::ranges::none_of(text, isSpecial)) return true;
    return comesBack(text) && !holdsBoth(text, "</" + std::string(name), "<" + std::string(name));
}

bool attributeComesBack(std::string_view text) {
    if (std::ranges::none_of(text, isSpecial)) return true;
    return comesBack(text) && !contains(text, "\t") && !holdsBoth(text, "\"", "<PLC");
}

bool nameAndAddressStayApart(const clsPLC& unit) {
    constexpr std::string_view kBetween = "\" address = \"";
    const std::string line = unit.getName() + std::string(kBetween) + unit.getAddress() + "\"";
    return line.find(kBetween) == unit.getName().size() && line.rfind(kBetween) == unit.getName().size();
}

bool branchComesBack(std::string_view name) {
    if (upperCased(name) == "TAG") return false;
    if (std::ranges::none_of(name, isSpecial)) return true;
    return comesBack(name) && !(contains(name, "<") && contains(name, ">"));
}

class Search {
public:
    explicit Search(const Configuration& configuration) : configuration_(configuration) {}

    std::vector<std::string> run() {
        for (const auto& [key, unit] : configuration_.units) checkUnit(*unit);
        for (const auto& [key, branch] : configuration_.branches) {
            if (!branchComesBack(branch->sName())) report("name of branch ", key);
        }
        for (const auto& [key, item] : configuration_.items) checkItem(key, *item);
        checkCapitals();
        return std::move(found_);
    }

private:
    void report(std::string_view what, const Key& key) {
        found_.push_back(std::string(what).append(key.view()));
    }

    void checkUnit(const clsPLC& unit) {
        if (configuration_.state.interfaceKind == kTcpIp) {
            if (!attributeComesBack(unit.getName()) || !nameAndAddressStayApart(unit))
                report("name of unit ", unit.sKey());
            if (!attributeComesBack(unit.getAddress())) report("address of unit ", unit.sKey());
            return;
        }
        if (!elementComesBack(unit.getName(), "name")) report("name of unit ", unit.sKey());
        if (!elementComesBack(unit.getCom(), "com") || !elementComesBack(unit.getParity(), "parity") ||
            !elementComesBack(unit.getFlowCtl(), "flowcontrol")) {
            report("port settings of unit ", unit.sKey());
        }
    }

    void checkItem(const Key& key, const clsItem& item) {
        if (!elementComesBack(item.sName(), "name")) report("name of item ", key);
        if (!elementComesBack(item.sComment(), "comment")) report("comment of ", key);
    }

    // Once for each container of branches whose names the file changes.
    void checkCapitals() {
        std::unordered_set<const TreeNode*> done;
        for (const auto& [key, branch] : configuration_.branches) {
            const TreeNode* node = configuration_.tree.find(key);
            if (node == nullptr || upperCased(branch->sName()) == branch->sName()) continue;
            if (done.insert(node->parent()).second) checkCapitalsBelow(*node->parent());
        }
    }

    void checkCapitalsBelow(const TreeNode& container) {
        std::unordered_set<std::string> names;
        for (const TreeNode* n = container.firstChild(); n != nullptr; n = n->nextSibling()) {
            if (n->tag() == NodeTag::Branch && !names.insert(upperCased(n->text())).second) {
                report("name of branch ", n->key());
            }
        }
        for (const TreeNode* n = container.firstChild(); n != nullptr; n = n->nextSibling()) {
            if (n->tag() == NodeTag::Item && names.contains(n->text())) report("name of item ", n->key());
        }
    }

    const Configuration& configuration_;
    std::vector<std::string> found_;
};

}  // namespace

std::vector<std::string> ambiguousTexts(const Configuration& configuration) {
    return Search(configuration).run();
}

}  // namespace trevandix
