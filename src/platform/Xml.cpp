#include "platform/Xml.h"

#include "platform/Text.h"

namespace trevandix {

namespace {
constexpr char32_t kFirstByte = 0xE000;             // private-use character for byte 0
constexpr std::string_view kMark = "\xEE\x84\x80";  // U+E100, the prefix of a name that carries a text
}  // namespace

XmlParseError::XmlParseError(std::size_t line, std::string_view reason)
    : RuntimeError(ErrorNumber::XmlParse, "line " + std::to_string(line) + ", " + std::string(reason)),
      line_(line) {}

std::string_view XmlElement::name() const {
    return document_->name(node_);
}

bool XmlElement::isNamed(std::string_view upper) const {
    const std::string_view own = name();
    if (own.size() != upper.size()) return false;
    for (std::size_t i = 0; i < own.size(); ++i) {
        const char c = own[i];
        if ((c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c) != upper[i]) return false;
    }
    return true;
}

XmlElement XmlElement::firstChild() const {
    return {document_, document_->firstChild(node_)};
}
XmlElement XmlElement::nextSibling() const {
    return {document_, document_->nextSibling(node_)};
}

XmlElement XmlElement::child(std::string_view name) const {
    XmlElement found = firstChild();
    while (found && found.name() != name) found = found.nextSibling();
    return found;
}

std::optional<std::string_view> XmlElement::attribute(std::string_view name) const {
    return document_->attribute(node_, name);
}

std::string_view XmlElement::text(std::string& buffer) const {
    return document_->text(node_, buffer);
}

std::string nameCarrying(std::string_view text) {
    std::string name(kMark);
    for (const char byte : text) appendUtf8(name, kFirstByte + static_cast<unsigned char>(byte));
    return name;
}

std::string carriedText(std::string_view name) {
    if (!name.starts_with(kMark)) return std::string(name);
    std::string text;
    for (std::size_t at = kMark.size(); at < name.size();)
        text += static_cast<char>(nextCodePoint(name, at) - kFirstByte);
    return text;
}

}  // namespace trevandix
