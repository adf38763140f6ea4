#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Xml.h"

namespace trevandix {

/// XML parser based on pugixml. Detects UTF-8, UTF-16, UTF-32, ISO-8859-1 and Windows-1252 by byte-order mark
/// or XML declaration. Refuses a text in another encoding, with bytes or references that stand for no
/// character, and with an attribute given twice where records have theirs, below the root's children. Does
/// not expand entities of a document type.
class PugiXmlParser : public XmlParser {
public:
    std::unique_ptr<XmlDocument> load(const std::string& filePath) override;
    std::unique_ptr<XmlDocument> parse(std::string_view bytes) override;
};

/// Name and version of the XML parser, for the About box.
std::string pugiVersion();

}  // namespace trevandix
