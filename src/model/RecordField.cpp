#include "model/RecordField.h"

#include <array>
#include <charconv>

#include "platform/RuntimeError.h"

namespace trevandix {

void throwMissing(const XmlElement& element, std::string_view kind, std::string_view name) {
    std::string detail("<");
    detail.append(element.name()).append("> has no ").append(kind).append(" \"").append(name).append("\"");
    throw RuntimeError(ErrorNumber::ObjectNotSet, detail);
}

std::string_view requiredAttribute(const XmlElement& element, std::string_view name) {
    const auto value = element.attribute(name);
    if (!value) throwMissing(element, "attribute", name);
    return *value;
}

std::string attributeStart(std::string_view name) {
    // Blanks stand around these equals signs only: existing files are compared byte by byte.
    const bool blanks = name == "address" || name == "readcode";
    return " " + std::string(name) + (blanks ? " = \"" : "=\"");
}

void appendNumber(std::string& out, int value) {
    std::array<char, 12> digits;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), end);
}

void appendElement(std::string& out, int tabs, std::string_view name, std::string_view value) {
    out.append(static_cast<std::size_t>(tabs), '\t');
    (((out += '<') += name) += '>') += value;
    ((out += "</") += name) += '>';
}

}  // namespace trevandix
