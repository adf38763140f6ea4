#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/RuntimeError.h"

namespace trevandix {

class XmlDocument;

/// Handle of one element of a parsed document; valid while the document lives. Texts are UTF-8.
class XmlElement {
public:
    XmlElement() = default;
    XmlElement(const XmlDocument* document, const void* node) : document_(document), node_(node) {}

    explicit operator bool() const { return node_ != nullptr; }

    /// The name as written in the file.
    std::string_view name() const;
    /// True when the name equals `upper` (ASCII capitals), ignoring case.
    bool isNamed(std::string_view upper) const;
    /// Child elements in document order; an empty handle after the last.
    XmlElement firstChild() const;
    XmlElement nextSibling() const;
    /// The first child element with exactly this name, or an empty handle.
    XmlElement child(std::string_view name) const;
    /// The attribute's value; none if it is missing.
    std::optional<std::string_view> attribute(std::string_view name) const;
    /// All text in the element and its descendants, without comments. `buffer` holds the result when it
    /// consists of several pieces.
    std::string_view text(std::string& buffer) const;

private:
    const XmlDocument* document_ = nullptr;
    const void* node_ = nullptr;
};

/// A parsed document. `node` is an implementation's own pointer to an element.
class XmlDocument {
public:
    virtual ~XmlDocument() = default;
    virtual XmlElement root() const = 0;

private:
    friend class XmlElement;
    virtual std::string_view name(const void* node) const = 0;
    virtual const void* firstChild(const void* node) const = 0;
    virtual const void* nextSibling(const void* node) const = 0;
    virtual std::optional<std::string_view> attribute(const void* node, std::string_view name) const = 0;
    virtual std::string_view text(const void* node, std::string& buffer) const = 0;
};

/// A text that cannot be parsed, with line number (from 1) and reason.
class XmlParseError : public RuntimeError {
public:
    XmlParseError(std::size_t line, std::string_view reason);
    std::size_t line() const { return line_; }

private:
    std::size_t line_;
};

class XmlParser {
public:
    virtual ~XmlParser() = default;
    /// Errors: FileNotFound, PathFileAccess, PermissionDenied, XmlParseError, OutOfMemory (too large).
    virtual std::unique_ptr<XmlDocument> load(const std::string& filePath) = 0;
    /// Parses the bytes of a file; the document does not refer to them. Errors: XmlParseError, OutOfMemory.
    virtual std::unique_ptr<XmlDocument> parse(std::string_view bytes) = 0;
};

/// Encodes any text as an element name, one private-use character per byte. No other document uses these
/// characters in names.
std::string nameCarrying(std::string_view text);
/// Decodes a name made by `nameCarrying`; returns any other name unchanged.
std::string carriedText(std::string_view name);

}  // namespace trevandix
