#include "platform/pugi/PugiXml.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <pugixml.hpp>
#include <vector>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

using namespace std::string_view_literals;

namespace {

[[noreturn]] void throwAt(std::string_view bytes, std::size_t offset, std::string_view reason) {
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), offset));
    throw XmlParseError(1 + static_cast<std::size_t>(std::count(bytes.begin(), end, '\n')), reason);
}

// How texts of more than one byte a character begin: with a byte-order mark or with "<".
struct WideText {
    std::string_view begin;
    std::size_t unit;  // bytes
    bool littleEndian;
};
constexpr std::array kWideTexts{
    WideText{"\xFF\xFE\0\0"sv, 4, true}, WideText{"\0\0\xFE\xFF"sv, 4, false},
    WideText{"<\0\0\0"sv, 4, true},      WideText{"\0\0\0<"sv, 4, false},
    WideText{"\xFF\xFE"sv, 2, true},     WideText{"\xFE\xFF"sv, 2, false},
    WideText{"<\0"sv, 2, true},          WideText{"\0<"sv, 2, false},
};

// UTF-16 or UTF-32 as UTF-8. Errors: XmlParseError.
std::string narrowed(std::string_view bytes, const WideText& kind) {
    const auto unitAt = [&](std::size_t at) {
        char32_t unit = 0;
        for (std::size_t i = 0; i < kind.unit && at < bytes.size(); ++i) {
            const std::size_t place = kind.littleEndian ? kind.unit - 1 - i : i;
            unit = unit << 8U | static_cast<unsigned char>(bytes[at + place]);
        }
        return unit;
    };
    std::string text;
    const std::string name = "UTF-" + std::to_string(kind.unit * 8);
    if (bytes.size() % kind.unit != 0) throwAt(bytes, bytes.size(), "half a " + name + " character");
    for (std::size_t at = 0; at < bytes.size(); at += kind.unit) {
        char32_t c = unitAt(at);
        if (kind.unit == 2 && isHalfPair(c)) {
            const char32_t second = unitAt(at += kind.unit);
            if (c >= 0xDC00 || second < 0xDC00 || !isHalfPair(second))
                throwAt(text, text.size(), "half a UTF-16 pair");
            c = 0x10000 + ((c & 0x3FFU) << 10U) + (second & 0x3FFU);
        }
        if (c != 0 && !isCharacter(c)) throwAt(text, text.size(), "invalid " + name);
        appendUtf8(text, c);
    }
    return text;
}

// The encoding that the XML declaration names; empty when it names none.
std::string_view declaredEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return {};
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    const std::size_t begin = declaration.find_first_of("\"'", declaration.find("encoding"));
    if (begin == std::string_view::npos) return {};
    const std::string_view value = declaration.substr(begin + 1);
    return value.substr(0, value.find(declaration[begin]));
}

// The text as UTF-8: pugixml would report error positions in a copy of its own, and it takes unknown
// encodings and invalid characters for others. Errors: XmlParseError.
std::string decoded(std::string bytes) {
    for (const WideText& kind : kWideTexts) {
        if (bytes.starts_with(kind.begin)) return narrowed(bytes, kind);
    }
    if (isAscii(bytes)) return bytes;
    const std::string_view declared = declaredEncoding(bytes);
    const std::string encoding = upperCased(declared);
    const bool windows = encoding == "WINDOWS-1252";
    if (encoding.empty() || encoding == "UTF-8") {
        const std::size_t invalid = invalidUtf8(bytes);
        if (invalid != std::string::npos) throwAt(bytes, invalid, "invalid UTF-8");
        return bytes;
    }
    if (!windows && encoding != "ISO-8859-1") {
        const bool showable = isAscii(declared) && declared.size() < 64;
        throw XmlParseError(1, "unknown encoding" + (showable ? " \"" + std::string(declared) + '"' : ""));
    }
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto c = static_cast<unsigned char>(byte);
        appendUtf8(text, windows ? windows1252(c) : c);
    }
    return text;
}

// pugixml takes a NUL byte for the end of the text, and computes references without a limit.
void refuseNoCharacters(std::string_view text) {
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos)
        throwAt(text, nul, "NUL in the text");
    constexpr std::string_view kBegin = "&#";
    for (std::size_t at = text.find(kBegin); at != std::string_view::npos; at = text.find(kBegin, at + 1)) {
        std::string_view digits = text.substr(at + kBegin.size());
        const bool hexadecimal = digits.starts_with('x');
        if (hexadecimal) digits.remove_prefix(1);
        unsigned character = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), character, hexadecimal ? 16 : 10);
        if (error != std::errc::invalid_argument && (error != std::errc() || !isCharacter(character)))
            throwAt(text, at, "a reference to no character");
    }
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// Appends all text of an element that has child nodes.
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
    // Returns freed pages to the system: the nodes lie below the records on the heap and would stay resident.
    ~PugiDocument() override {
        document.reset();
#ifdef __GLIBC__
        malloc_trim(0);
#endif
    }

    pugi::xml_document document;
    std::string source;  // the nodes point into it, or into pugixml's converted copy

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

    // The text before an element's first child is stored as the element's own value.
    std::string_view text(const void* node, std::string& buffer) const override {
        pugi::xml_node element = at(node);
        if (element.first_child().empty()) return element.value();
        buffer = element.value();
        AllText pieces(buffer);
        element.traverse(pieces);
        return buffer;
    }
};

// Finds what makes a document invalid although pugixml can parse it.
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

// Only of the root's grandchildren: no others are read, and looking at every element would take a fifteenth
// of the time that opening a file takes.
std::optional<Failure> attributeTwice(const pugi::xml_document& document) {
    std::vector<std::string_view> names;
    for (const pugi::xml_node& section : document.document_element()) {
        for (const pugi::xml_node& element : section) {
            names.clear();
            for (const pugi::xml_attribute& attribute : element.attributes())
                names.emplace_back(attribute.name());
            std::ranges::sort(names);
            if (std::ranges::adjacent_find(names) != names.end())
                return Failure{element.offset_debug(), "An attribute is given twice"};
        }
    }
    return std::nullopt;
}

// Parsing overwrites the text. To find the line of an error, `again` provides the bytes once more.
template <typename Again>
std::unique_ptr<XmlDocument> parsed(std::string bytes, Again again) {
    // A text of blanks is kept if it is an element's only content, because a comment may consist of blanks.
    // Storing an element's text as its value halves the number of nodes.
    constexpr unsigned kOptions =
        pugi::parse_default | pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata | pugi::parse_fragment;
    auto made = std::make_unique<PugiDocument>();
    made->source = decoded(std::move(bytes));
    refuseNoCharacters(made->source);
    const pugi::xml_parse_result result = made->document.load_buffer_inplace(
        made->source.data(), made->source.size(), kOptions, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) throw RuntimeError(ErrorNumber::OutOfMemory);
    std::optional<Failure> failure{{result.offset, result.description()}};
    if (result) failure = contentOutsideRoot(made->document);
    if (!failure) failure = attributeTwice(made->document);
    if (!failure) return std::unique_ptr<XmlDocument>(std::move(made));
    made.reset();
    throwAt(decoded(again()), static_cast<std::size_t>(std::max<std::ptrdiff_t>(failure->offset, 0)),
            failure->reason);
}

}  // namespace

std::unique_ptr<XmlDocument> PugiXmlParser::load(const std::string& filePath) {
    const auto bytes = [&] { return readWholeFile(filePath); };
    return parsed(bytes(), bytes);
}

std::unique_ptr<XmlDocument> PugiXmlParser::parse(std::string_view bytes) {
    return parsed(std::string(bytes), [&] { return std::string(bytes); });
}

// 1130 means 1.13, and 1135 means 1.13.5.
std::string pugiVersion() {
    constexpr int kVersion = PUGIXML_VERSION;
    std::string text =
        "pugixml " + std::to_string(kVersion / 1000) + "." + std::to_string(kVersion / 10 % 100);
    if (kVersion % 10 != 0) text += "." + std::to_string(kVersion % 10);
    return text;
}

}  // namespace trevandix
