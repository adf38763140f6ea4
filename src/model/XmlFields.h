#pragma once

#include <string>
#include <string_view>

#include "platform/Xml.h"

namespace trevandix {

/// The attribute's value. Errors: ObjectNotSet, naming element and attribute, when it is missing.
std::string_view requiredAttribute(const XmlElement& element, std::string_view name);

/// Throws ObjectNotSet, naming the element and what it lacks (an "attribute" or an "element").
[[noreturn]] void throwMissing(const XmlElement& element, std::string_view kind, std::string_view name);

/// Blank, name, equals sign and quotation mark, as the writer sets them.
std::string attributeStart(std::string_view name);

/// Appends tabs, "<name>", value, "</name>".
void appendElement(std::string& out, int tabs, std::string_view name, std::string_view value);
void appendNumber(std::string& out, int value);

}  // namespace trevandix
