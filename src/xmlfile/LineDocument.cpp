#include "xmlfile/LineDocument.h"

#include <algorithm>

#include "xmlfile/LineParser.h"

namespace trevandix {

LineDocument::LineDocument(std::string bytes, References references)
    : text_(utf8FromLatin1(std::move(bytes))) {
    LineParser(text_, nodes_, references).parse();
}

void LineDocument::findChildren(const void* node, std::span<const std::string_view> names,
                                std::span<XmlElement> found) const {
    for (std::uint32_t index = at(node).firstChild; index != 0; index = nodes_[index].next) {
        const auto place =
            static_cast<std::size_t>(std::ranges::find(names, nameOf(nodes_[index])) - names.begin());
        if (place < names.size() && !found[place]) found[place] = handle(index);
    }
}

std::optional<std::string_view> LineDocument::attribute(const void* node, std::string_view name) const {
    for (std::uint32_t index = at(node).attributes; index != 0; index = nodes_[index].next) {
        if (nameOf(nodes_[index]) == name) return valueOf(nodes_[index]);
    }
    return std::nullopt;
}

}  // namespace trevandix
