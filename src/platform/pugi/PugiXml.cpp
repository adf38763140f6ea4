#include "platform/pugi/PugiXml.h"

#include <algorithm>
#include <array>
#include <optional>
#include <pugixml.hpp>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "platform/pugi/ParseFailures.h"

namespace trevandix {

namespace {

// Bytes 80 to 9F of Windows-1252; 0 where the byte has no character and is kept as a control.
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// Whether the declaration of the file names the encoding, which is told in capitals.
bool declares(std::string_view bytes, std::string_view encoding) {
    if (!bytes.starts_with("<?xml")) return false;
    const std::string_view start = bytes.substr(0, 512);
    const std::string declaration = upperCased(start.substr(0, start.find("?>")));
    const std::size_t place = declaration.find(encoding);
    return place != std::string::npos && declaration.find_first_of("\"'", place) == place + encoding.size();
}

struct Text {
    std::string bytes;
    pugi::xml_encoding encoding;
};

// In UTF-8 where its bytes are one character each; other encodings are left to the parser. It would know
// ISO-8859-1 as well, but tell the place of a failure in its own copy.
Text decoded(std::string bytes) {
    const bool windows = declares(bytes, "WINDOWS-1252");
    if ((!windows && !declares(bytes, "ISO-8859-1")) || isAscii(bytes))
        return {std::move(bytes), pugi::encoding_auto};
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto c = static_cast<unsigned char>(byte);
        const char32_t character = windows && c >= 0x80 && c < 0xA0 ? kWindows1252[c - 0x80U] : 0;
        appendUtf8(text, character != 0 ? character : c);
    }
    return {std::move(text), pugi::encoding_utf8};
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// The text of an element in several pieces.
struct AllText : pugi::xml_tree_walker {
    explicit AllText(std::string& out) : text(out) {}
    bool for_each(pugi::xml_node& node) override {
        text += node.value();
        return true;
    }
    std::string& text;
};

class PugiDocument : public XmlDocument {
public:
    // In the heap the nodes, as large as the records made of them, lie below those and would stay resident.
    ~PugiDocument() override {
        document.reset();
#ifdef __GLIBC__
        malloc_trim(0);
#endif
    }

    pugi::xml_document document;
    std::string source;  // the nodes point into it, or into what the parser has converted it to

    XmlElement root() const override {
        return {this, document.document_element().internal_object()};
    }

private:
    static pugi::xml_node at(const void* node) {
        return pugi::xml_node(static_cast<pugi::xml_node_struct*>(const_cast<void*>(node)));
    }
    static const void* elementFrom(pugi::xml_node node) {
        while (node && node.type() != pugi::node_element) node = node.next_sibling();
        return node.internal_object();
    }

    std::string_view name(const void* node) const override {
        return at(node).name();
    }
    const void* firstChild(const void* node) const override {
        return elementFrom(at(node).first_child());
    }
    const void* nextSibling(const void* node) const override {
        return elementFrom(at(node).next_sibling());
    }

    std::optional<std::string_view> attribute(const void* node, std::string_view name) const override {
        for (const pugi::xml_attribute& attribute : at(node).attributes()) {
            if (name == attribute.name()) return attribute.value();
        }
        return std::nullopt;
    }

    // The text in front of an element's children is its own value.
    std::string_view text(const void* node, std::string& buffer) const override {
        pugi::xml_node element = at(node);
        if (element.first_child().empty()) return element.value();
        buffer = element.value();
        AllText pieces(buffer);
        element.traverse(pieces);
        return buffer;
    }
};

// What makes a text no document although each of its parts could be parsed.
struct Failure {
    std::ptrdiff_t offset;
    const char* reason;
};
std::optional<Failure> contentOutsideRoot(const pugi::xml_document& document) {
    const pugi::xml_node root = document.document_element();
    if (!root) return Failure{0, "No document element found"};
    for (const pugi::xml_node& node : document.children()) {
        if (node.type() == pugi::node_element ? node != root : !isBlank(node.value()))
            return Failure{node.offset_debug(), "Content outside the document element"};
    }
    return std::nullopt;
}

// Parsing changes the text, so where it fails the line is looked for in the same bytes, got once more by
// `again`.
template <typename Again>
std::unique_ptr<XmlDocument> parsed(std::string bytes, Again again) {
    // Texts of blanks alone are kept where they are an element's only content, so that a comment of blanks
    // survives. A text that is its element's value needs no node of its own, which halves their number.
    constexpr unsigned kOptions =
        pugi::parse_default | pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata | pugi::parse_fragment;
    refuseHalfPairs(bytes);
    Text text = decoded(std::move(bytes));
    auto made = std::make_unique<PugiDocument>();
    made->source = std::move(text.bytes);
    const pugi::xml_parse_result result =
        made->document.load_buffer_inplace(made->source.data(), made->source.size(), kOptions, text.encoding);
    if (result.status == pugi::status_out_of_memory) throw RuntimeError(ErrorNumber::OutOfMemory);
    auto failure = result ? contentOutsideRoot(made->document)
                          : std::optional(Failure{result.offset, result.description()});
    if (!failure) return std::unique_ptr<XmlDocument>(std::move(made));
    made.reset();
    throwParseError(decoded(again()).bytes,
                    static_cast<std::size_t>(std::max<std::ptrdiff_t>(failure->offset, 0)), failure->reason);
}

}  // namespace

std::unique_ptr<XmlDocument> PugiXmlParser::load(const std::string& filePath) {
    const auto bytes = [&] { return readWholeFile(filePath); };
    return parsed(bytes(), bytes);
}

std::unique_ptr<XmlDocument> PugiXmlParser::parse(std::string_view bytes) {
    return parsed(std::string(bytes), [&] { return std::string(bytes); });
}

}  // namespace trevandix
