#include "platform/pugi/PugiXml.h"

#include <algorithm>
#include <array>
#include <optional>
#include <pugixml.hpp>

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "platform/pugi/NodeMemory.h"
#include "platform/pugi/ParseFailures.h"

namespace trevandix {

namespace {

// Bytes 80 to 9F of Windows-1252; 0 where the byte has no character and is kept as a control.
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// Makes UTF-8 of a text whose bytes are one character each, those from 80 to 9F as the table says.
void convertSingleBytes(std::string& bytes, const std::array<char16_t, 32>& specials) {
    const auto special = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
    auto next = std::ranges::find_if(bytes, special);
    if (next == bytes.end()) return;
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (auto done = bytes.begin();; next = std::find_if(done, bytes.end(), special)) {
        text.append(done, next);
        if (next == bytes.end()) break;
        const auto c = static_cast<unsigned char>(*next);
        const char32_t character = c < 0xA0 ? specials[c - 0x80U] : 0;
        appendUtf8(text, character != 0 ? character : c);
        done = next + 1;
    }
    bytes.swap(text);
}

// The encoding that the declaration names, in small letters; empty when there is none.
std::string declaredEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return {};
    const std::string_view declaration = bytes.substr(0, bytes.substr(0, 512).find("?>"));
    const auto word = declaration.find("encoding");
    if (word == std::string_view::npos) return {};
    const auto open = declaration.find_first_of("\"'", word);
    if (open == std::string_view::npos) return {};
    const auto close = declaration.find(declaration[open], open + 1);
    std::string name(declaration.substr(open + 1, close == std::string_view::npos ? 0 : close - open - 1));
    std::ranges::transform(name, name.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return name;
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

class PugiDocument : public XmlDocument {
public:
    mutable NodeMemory memory;
    pugi::xml_document& document = memory.makeDocument();

    pugi::xml_parse_result parse(std::string text, unsigned options, pugi::xml_encoding encoding) {
        bytes_ = std::move(text);
        const NodeMemory::Use use(memory);
        const auto result = document.load_buffer_inplace(bytes_.data(), bytes_.size(), options, encoding);
        text_ = ReturnedMemory(document.document_element().name());
        return result;
    }

    /// What makes a text no document although each of its parts could be parsed.
    struct Stray {
        std::ptrdiff_t offset;
        const char* reason;
    };
    std::optional<Stray> outsideRoot() const {
        const pugi::xml_node root = document.document_element();
        if (!root) return Stray{0, "No document element found"};
        for (const pugi::xml_node& node : document.children()) {
            const bool text = node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
            if ((text && !isBlank(node.value())) || (node.type() == pugi::node_element && node != root))
                return Stray{node.offset_debug(), "Content outside the document element"};
        }
        return std::nullopt;
    }

    bool doubtful() const override { return doubtful_; }
    XmlElement root() const override { return {this, document.document_element().internal_object()}; }

private:
    static pugi::xml_node at(const void* node) {
        return pugi::xml_node(static_cast<pugi::xml_node_struct*>(const_cast<void*>(node)));
    }
    bool isElement(const void* node) const override {
        const bool element = at(node).type() == pugi::node_element;
        // Blanks alone are what the writer leaves in a section or branch without contents.
        if (!element && !isBlank(at(node).value())) doubtful_ = true;
        return element;
    }

    std::string_view name(const void* node) const override {
        const std::string_view name = at(node).name();
        // Names lie in the parsed text, where a 0 has been written over the character behind them. When that
        // was a blank, what follows it can still be seen.
        if (name.empty()) return name;
        const char next = name.data()[name.size() + 1];
        if (next == '>' || next == ' ' || next == '\t') doubtful_ = true;
        return name;
    }

    const void* firstChild(const void* node) const override {
        checkTextBefore(node);
        return at(node).first_child().internal_object();
    }
    const void* nextSibling(const void* node) const override {
        return at(node).next_sibling().internal_object();
    }

    void findChildren(const void* node, std::span<const std::string_view> names,
                      std::span<XmlElement> found) const override {
        checkTextBefore(node);
        std::size_t expected = 0;
        for (pugi::xml_node child = at(node).first_child(); child; child = child.next_sibling()) {
            const std::string_view name = child.name();
            if (expected == names.size() || name != names[expected]) {
                expected = static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
            }
            if (expected == names.size() || found[expected]) {
                doubtful_ = true;
                continue;
            }
            found[expected++] = {this, child.internal_object()};
        }
    }

    std::optional<std::string_view> attribute(const void* node, std::string_view name) const override {
        constexpr int kMostAttributes = 4;  // that the writer gives an element
        int count = 0;
        for (const pugi::xml_attribute& attribute : at(node).attributes()) {
            if (++count > kMostAttributes) doubtful_ = true;
            if (name == attribute.name()) return attribute.value();
        }
        return std::nullopt;
    }

    // All text below the element, as parsers report an element's text. The text in front of an element's
    // children is its own value.
    std::string_view text(const void* node, std::string& buffer) const override {
        const pugi::xml_node element = at(node);
        if (element.first_child().empty()) return element.value();
        doubtful_ = true;
        buffer = element.value();
        pugi::xml_node below = element.first_child();
        while (below) {
            if (below.type() == pugi::node_pcdata || below.type() == pugi::node_cdata ||
                below.type() == pugi::node_element)
                buffer += below.value();
            if (below.first_child()) {
                below = below.first_child();
                continue;
            }
            while (below != element && !below.next_sibling()) below = below.parent();
            if (below == element) break;
            below = below.next_sibling();
        }
        return buffer;
    }

    void passed(const void* node) const override {
        memory.returnBefore(node);
        text_.returnUpTo(at(node).name());  // names stand in the text
    }

    // The writer leaves no more than blanks in front of an element's children.
    void checkTextBefore(const void* node) const {
        if (!isBlank(at(node).value())) doubtful_ = true;
    }

    std::string bytes_;            // the nodes point into them, or into what they were converted to
    mutable ReturnedMemory text_;  // of those
    mutable bool doubtful_ = false;
};

struct Text {
    std::string bytes;
    pugi::xml_encoding encoding = pugi::encoding_auto;
};

// In UTF-8, unless it is what the parser itself knows best.
Text textOf(const std::string& filePath) {
    Text text{readWholeFile(filePath)};
    refuseHalfPairs(text.bytes);
    const std::string encoding = declaredEncoding(text.bytes);
    const bool windows = encoding == "windows-1252";
    if (windows || encoding == "iso-8859-1" || encoding == "latin1") {
        text.encoding = pugi::encoding_utf8;
        convertSingleBytes(text.bytes, windows ? kWindows1252 : std::array<char16_t, 32>{});
    }
    return text;
}

// Parsing has changed the text, so what is wrong with it is looked for in the file again.
[[noreturn]] void throwFailure(const std::string& filePath, std::ptrdiff_t offset, const char* reason) {
    const auto place = static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0));
    throwParseError(textOf(filePath).bytes, place, reason);
}

}  // namespace

std::unique_ptr<XmlDocument> PugiXmlParser::load(const std::string& filePath) {
    Text text = textOf(filePath);
    auto document = std::make_unique<PugiDocument>();
    // Texts of blanks alone are kept where they are an element's only content, so that a comment of blanks
    // survives. Comments and instructions are kept so that markup inside values is noticed. A text that is
    // its element's value needs no node of its own, which halves their number.
    constexpr unsigned kOptions = pugi::parse_default | pugi::parse_ws_pcdata_single | pugi::parse_comments |
                                  pugi::parse_pi | pugi::parse_embed_pcdata | pugi::parse_fragment;
    const pugi::xml_parse_result result = document->parse(std::move(text.bytes), kOptions, text.encoding);
    if (result.status == pugi::status_out_of_memory) throw RuntimeError(ErrorNumber::OutOfMemory);
    if (!result) {
        document.reset();  // the text is read once more
        throwFailure(filePath, result.offset, result.description());
    }
    if (const auto stray = document->outsideRoot()) {
        document.reset();
        throwFailure(filePath, stray->offset, stray->reason);
    }
    return document;
}

}  // namespace trevandix
