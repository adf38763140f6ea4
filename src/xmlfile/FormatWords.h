#pragma once

#include <string_view>

namespace trevandix {

class XmlElement;

/// The two kinds of configuration file.
struct FileKind {
    std::string_view interfaceKind;
    std::string_view rootTag;    ///< as written
    std::string_view upperRoot;  ///< as compared when read
};

/// nullptr for any other interface kind.
const FileKind* fileKindOf(std::string_view interfaceKind);
/// By the root element's name, whatever its case; nullptr when the file is no configuration.
const FileKind* fileKindOfRoot(const XmlElement& root);

/// True when the text ends with a root element's end tag, whatever its case.
bool hasRootEndTag(std::string_view text);

inline constexpr std::string_view kProlog = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";

}  // namespace trevandix
