#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/RuntimeError.h"

namespace trevandix {

class XmlDocument;

/// A light handle on one node of a parsed document; valid while the document lives. Texts are UTF-8.
class XmlElement {
public:
    XmlElement() = default;
    XmlElement(const XmlDocument* document, const void* node) : document_(document), node_(node) {}

    explicit operator bool() const { return node_ != nullptr; }
    bool operator==(const XmlElement& other) const { return node_ == other.node_; }

    bool isElement() const;
    /// The name as written in the file.
    std::string_view name() const;
    /// The name compares equal to `upper` (ASCII capitals) when its case is ignored.
    bool isNamed(std::string_view upper) const;
    /// Children in document order, of every node kind.
    XmlElement firstChild() const;
    XmlElement nextSibling() const;
    /// The first child of each of the names, in one walk; an empty handle stays where there is none. It is
    /// quickest where the children stand in the order of the names. `found` has as many places as there are
    /// names.
    void findChildren(std::span<const std::string_view> names, std::span<XmlElement> found) const;
    /// The attribute's value; nothing when it is missing.
    std::optional<std::string_view> attribute(std::string_view name) const;
    /// The text below the element; empty when there is none.
    std::string text() const;
    /// The same without a copy where the text is one piece; `buffer` holds it where it is not.
    std::string_view text(std::string& buffer) const;

    /// What stands before it in the document, the elements around it included, is not asked for again: its
    /// memory may go back.
    void passed() const;

private:
    const XmlDocument* document_ = nullptr;
    const void* node_ = nullptr;
};

/// A parsed document. Implementations give meaning to the opaque node pointers.
class XmlDocument {
public:
    virtual ~XmlDocument() = default;
    virtual XmlElement root() const = 0;
    /// True once something was met that is well-formed but that the writer itself never means: it may be
    /// markup that stands, not escaped, inside a value, which a parser reads as something else.
    virtual bool doubtful() const { return false; }

private:
    friend class XmlElement;
    virtual bool isElement(const void* node) const = 0;
    virtual std::string_view name(const void* node) const = 0;
    virtual const void* firstChild(const void* node) const = 0;
    virtual const void* nextSibling(const void* node) const = 0;
    virtual void findChildren(const void* node, std::span<const std::string_view> names,
                              std::span<XmlElement> found) const = 0;
    virtual std::optional<std::string_view> attribute(const void* node, std::string_view name) const = 0;
    virtual std::string_view text(const void* node, std::string& buffer) const = 0;
    virtual void passed(const void*) const {}
};

/// A text that cannot be read, with the line (from 1) where it cannot and the reason.
class XmlParseError : public RuntimeError {
public:
    XmlParseError(std::size_t line, std::string_view reason);
    std::size_t line() const { return line_; }

private:
    std::size_t line_;
};

/// Loads documents from files.
class XmlParser {
public:
    virtual ~XmlParser() = default;
    /// Errors: FileNotFound, PathFileAccess, PermissionDenied, XmlParseError, OutOfMemory (too large).
    virtual std::unique_ptr<XmlDocument> load(const std::string& filePath) = 0;
};

}  // namespace trevandix
