#include "platform/Xml.h"

#include "platform/Text.h"

namespace trevandix {

XmlParseError::XmlParseError(std::size_t line, std::string_view reason)
    : RuntimeError(ErrorNumber::XmlParse, "line " + std::to_string(line) + ", " + std::string(reason)),
      line_(line) {}

bool XmlElement::isElement() const {
    return document_->isElement(node_);
}
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

void XmlElement::passed() const {
    document_->passed(node_);
}

XmlElement XmlElement::firstChild() const {
    return {document_, document_->firstChild(node_)};
}
XmlElement XmlElement::nextSibling() const {
    return {document_, document_->nextSibling(node_)};
}

void XmlElement::findChildren(std::span<const std::string_view> names, std::span<XmlElement> found) const {
    document_->findChildren(node_, names, found);
}

std::optional<std::string_view> XmlElement::attribute(std::string_view name) const {
    return document_->attribute(node_, name);
}

std::string XmlElement::text() const {
    std::string buffer;
    return std::string(text(buffer));
}

std::string_view XmlElement::text(std::string& buffer) const {
    return document_->text(node_, buffer);
}

}  // namespace trevandix
