#pragma once

#include "platform/Xml.h"

namespace trevandix {

/// XML read through pugixml. The encoding is taken from the byte-order mark or the declaration: UTF-8,
/// UTF-16, UTF-32, ISO-8859-1 and Windows-1252. Entities of a document type are not expanded.
class PugiXmlParser : public XmlParser {
public:
    std::unique_ptr<XmlDocument> load(const std::string& filePath) override;
    std::unique_ptr<XmlDocument> parse(std::string_view bytes) override;
};

}  // namespace trevandix
