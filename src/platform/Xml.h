#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/RuntimeError.h"

namespace trevandix {

class XmlDocument;

/// A light handle on one element of a parsed document; valid while the document lives. Texts are UTF-8.
class XmlElement {
public:
    XmlElement() = default;
    XmlElement(const XmlDocument* document, const void* node) : document_(document), node_(node) {}

    explicit operator bool() const { return node_ != nullptr; }

    /// The name as written in the file.
    std::string_view name() const;
    /// The name compares equal to `upper` (ASCII capitals) when its case is ignored.
    bool isNamed(std::string_view upper) const;
    /// Child elements in document order; an empty handle behind the last.
    XmlElement firstChild() const;
    XmlElement nextSibling() const;
    /// The first child element of exactly this name; an empty handle when there is none.
    XmlElement child(std::string_view name) const;
    /// The attribute's value; nothing when it is missing.
    std::optional<std::string_view> attribute(std::string_view name) const;
    /// All text below the element, comments left out. `buffer` holds it where it is not in one piece.
    std::string_view text(std::string& buffer) const;

private:
    const XmlDocument* document_ = nullptr;
    const void* node_ = nullptr;
};

/// A parsed document. Implementations give meaning to the opaque node pointers, which stand for elements.
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

/// A text that cannot be read, with the line (from 1) where it cannot and the reason.
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
    /// The same of a file's bytes, to which the document does not refer. Errors: XmlParseError, OutOfMemory.
    virtual std::unique_ptr<XmlDocument> parse(std::string_view bytes) = 0;
};

/// An element name that carries any text, also one that is no XML name: byte by byte in private-use
/// characters, which no XML document has in its names.
std::string nameCarrying(std::string_view text);
/// The text that an element name carries; the name itself where it carries none.
std::string carriedText(std::string_view name);

}  // namespace trevandix
