#pragma once

#include <cstdint>
#include <vector>

#include "platform/Xml.h"
#include "xmlfile/FileText.h"

namespace trevandix {

/// One element or attribute of a LineDocument. Texts are places in the document's text, the rest are indexes
/// of nodes, 0 for none. Small, as a large plant has millions.
struct LineNode {
    std::uint32_t nameAt = 0;
    std::uint32_t nameLength = 0;
    std::uint32_t valueAt = 0;
    std::uint32_t valueLength = 0;
    std::uint32_t firstChild = 0;
    std::uint32_t next = 0;
    std::uint32_t attributes = 0;
};

/// A file of exactly the writer's shape, taken apart by its lines, depths and fixed texts instead of as XML:
/// the writer escapes nothing, so only this way do values with markup in them come back.
class LineDocument : public XmlDocument {
public:
    /// `bytes` is the whole file, at most 2 GiB. Errors: XmlParseError, with the line where the shape is
    /// left.
    LineDocument(std::string bytes, References references);

    XmlElement root() const override { return handle(1); }

private:
    static const LineNode& at(const void* node) { return *static_cast<const LineNode*>(node); }
    const void* pointer(std::uint32_t index) const { return index == 0 ? nullptr : &nodes_[index]; }
    XmlElement handle(std::uint32_t index) const { return {this, pointer(index)}; }
    std::string_view nameOf(const LineNode& node) const { return {&text_[node.nameAt], node.nameLength}; }
    std::string_view valueOf(const LineNode& node) const { return {&text_[node.valueAt], node.valueLength}; }

    bool isElement(const void*) const override { return true; }
    std::string_view name(const void* node) const override { return nameOf(at(node)); }
    const void* firstChild(const void* node) const override { return pointer(at(node).firstChild); }
    const void* nextSibling(const void* node) const override { return pointer(at(node).next); }
    void findChildren(const void* node, std::span<const std::string_view> names,
                      std::span<XmlElement> found) const override;
    std::optional<std::string_view> attribute(const void* node, std::string_view name) const override;
    std::string_view text(const void* node, std::string&) const override { return valueOf(at(node)); }

    std::string text_;  // UTF-8; character references have been decoded in place
    std::vector<LineNode> nodes_;
};

}  // namespace trevandix
