#include "platform/pugi/PugiXml.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <pugixml.hpp>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

using namespace std::string_view_literals;

namespace {

enum class Utf16 { No, LittleEndian, BigEndian };
enum class Half { None, First, Second };
constexpr std::string_view kHalfPair = "half a UTF-16 pair";

Utf16 utf16Kind(std::string_view bytes) {
    const auto begins = [&](std::string_view mark) { return bytes.starts_with(mark); };
    if (begins("\xFF\xFE\0\0"sv) || begins("<\0\0\0"sv)) return Utf16::No;
    if (begins("\xFF\xFE"sv) || begins("<\0"sv)) return Utf16::LittleEndian;
    return begins("\xFE\xFF"sv) || begins("\0<"sv) ? Utf16::BigEndian : Utf16::No;
}

[[noreturn]] void throwAt(std::string_view bytes, std::size_t offset, std::string_view reason) {
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), offset));
    throw XmlParseError(1 + static_cast<std::size_t>(std::count(bytes.begin(), end, '\n')), reason);
}

void refuseHalfReferences(std::string_view bytes) {
    constexpr std::string_view kBegin = "&#";
    for (std::size_t at = bytes.find(kBegin); at != std::string_view::npos; at = bytes.find(kBegin, at + 1)) {
        const std::size_t digits = at + kBegin.size();
        const bool hexadecimal = bytes.substr(digits, 1) == "x";
        unsigned character = 0;
        std::from_chars(bytes.data() + digits + (hexadecimal ? 1 : 0), bytes.data() + bytes.size(), character,
                        hexadecimal ? 16 : 10);
        if (character >= 0xD800 && character <= 0xDFFF) throwAt(bytes, at, kHalfPair);
    }
}

// Throws the XmlParseError of a file that could not be parsed beyond `offset`.
[[noreturn]] void throwParseError(std::string_view bytes, std::size_t offset, std::string_view reason) {
    // pugixml takes a NUL byte for the end of the file and reports whatever is open there, so the NUL itself
    // is reported. A NUL among the first bytes means UTF-16 or UTF-32.
    const std::size_t nul = bytes.find('\0');
    const bool strayNul = nul > 3 && nul != std::string_view::npos && !bytes.starts_with("\xFF\xFE"sv) &&
                          !bytes.starts_with("\xFE\xFF"sv);
    throwAt(bytes, strayNul ? nul : offset, strayNul ? "NUL byte in the text" : reason);
}

// Throws XmlParseError for an incomplete UTF-16 character or surrogate pair, which pugixml would silently
// drop, and for a character reference to half a surrogate pair.
void refuseHalfPairs(std::string_view bytes) {
    const Utf16 kind = utf16Kind(bytes);
    if (kind == Utf16::No) return refuseHalfReferences(bytes);
    const std::size_t high = kind == Utf16::LittleEndian ? 1 : 0;
    const auto half = [&](std::size_t at) {
        const int bits = at + 1 < bytes.size() ? static_cast<unsigned char>(bytes[at + high]) & 0xFC : 0;
        return bits == 0xD8 ? Half::First : bits == 0xDC ? Half::Second : Half::None;
    };
    if (bytes.size() % 2 != 0) throwAt(bytes, bytes.size(), "half a UTF-16 character");
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        if (half(at) == Half::None) continue;
        if (half(at) == Half::Second || half(at + 2) != Half::Second) throwAt(bytes, at, kHalfPair);
        at += 2;
    }
}

// Bytes 80 to 9F of Windows-1252; 0 for an unassigned byte, which is kept as a control character.
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// True when the XML declaration names the encoding, given in capitals.
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

// Converts single-byte encodings to UTF-8 and leaves others to pugixml. It could convert ISO-8859-1 too, but
// would then report error positions in its own copy.
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

// Parsing overwrites the text. To find the line of an error, `again` provides the bytes once more.
template <typename Again>
std::unique_ptr<XmlDocument> parsed(std::string bytes, Again again) {
    // A text of blanks is kept if it is an element's only content, because a comment may consist of blanks.
    // Storing an element's text as its value halves the number of nodes.
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

// 1130 means 1.13, and 1135 means 1.13.5.
std::string pugiVersion() {
    constexpr int kVersion = PUGIXML_VERSION;
    std::string text =
        "pugixml " + std::to_string(kVersion / 1000) + "." + std::to_string(kVersion / 10 % 100);
    if (kVersion % 10 != 0) text += "." + std::to_string(kVersion % 10);
    return text;
}

}  // namespace trevandix
