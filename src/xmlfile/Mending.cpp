#include "xmlfile/Mending.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "model/RecordField.h"
#include "model/clsItem.h"
#include "model/clsModBusType.h"
#include "model/clsPLC.h"
#include "platform/Text.h"
#include "platform/Xml.h"
#include "xmlfile/FormatWords.h"
#include "xmlfile/Latin1Lines.h"

namespace trevandix {

namespace {

// The texts in front of each attribute value, then the text that ends the line.
std::vector<std::string> lineParts(std::string_view tag, const std::vector<std::string_view>& names,
                                   std::string_view end) {
    std::vector<std::string> parts;
    for (const std::string_view name : names)
        parts.push_back((parts.empty() ? "<" + std::string(tag) : "\"") + attributeStart(name));
    parts.push_back("\"" + std::string(end));
    return parts;
}

struct Character {
    char32_t codePoint;
    std::size_t length;  // in the file
};

// The writer makes references with capital digits and without leading zeros, and only for characters outside
// Latin-1. Anything else that looks like a reference is typed text.
Character characterAt(std::string_view bytes) {
    constexpr std::string_view kPrefix = "&#x";
    constexpr std::size_t kLongest = kPrefix.size() + 7;  // six digits and ";"
    const Character byte{static_cast<unsigned char>(bytes.front()), 1};
    if (!bytes.starts_with(kPrefix)) return byte;
    const std::size_t stop = bytes.substr(0, kLongest).find(';');
    if (stop == std::string_view::npos) return byte;
    const std::string_view digits = bytes.substr(kPrefix.size(), stop - kPrefix.size());
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    const bool own = error == std::errc() && end == digits.data() + digits.size() && digits.front() != '0' &&
                     std::ranges::none_of(digits, [](char c) { return c >= 'a'; });
    if (!own || value <= 0xFF || !isCharacter(value)) return byte;
    return {value, stop + 1};
}

std::string inUtf8(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        const Character next = characterAt(bytes);
        appendUtf8(text, next.codePoint);
        bytes.remove_prefix(next.length);
    }
    return text;
}

std::string escaped(std::string_view bytes) {
    std::string text;
    for (const char c : inUtf8(bytes)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || c == '&' || c == '<' || c == '"')
            text += "&#" + std::to_string(byte) + ";";
        else
            text += c;
    }
    return text;
}

class Mending {
public:
    explicit Mending(std::string_view bytes) : bytes_(bytes) {
        out_.reserve(bytes.size() + bytes.size() / 8);
    }

    std::string run() {
        if (const auto nul = bytes_.find('\0'); nul != std::string_view::npos) {
            at_ = nul;
            fail("text, not a NUL byte");
        }
        beginLine();
        if (content_ != kProlog) fail(kProlog);
        nextLine();
        const bool rtu = content_ == "<" + std::string(fileKindOf(kRtu)->rootTag) + ">";
        const std::string root((rtu ? fileKindOf(kRtu) : fileKindOf(kTcpIp))->rootTag);
        line(0, "<" + root + ">");
        line(1, "<MODBUS>");
        while (begins(2, dataType_.front())) attributes(dataType_);
        line(1, "</MODBUS>");
        line(1, "<OPC_DA>");
        while (begins(2, "<PLC")) unit(rtu);
        line(1, "</OPC_DA>");
        line(0, "</" + root + ">");
        if (bytes_.find_first_not_of(" \t\r\n", at_) != std::string_view::npos) fail("the end of the file");
        return std::move(out_);
    }

private:
    void unit(bool rtu) {
        if (rtu) {
            line(2, "<PLC>");
            for (const std::string_view name : clsPLC::fieldNames(kRtu)) value(3, name);
        } else {
            attributes(tcpIpUnit_);
        }
        line(3, "<tags>");
        tags();
        line(3, "</tags>");
        line(2, "</PLC>");
    }

    // Numbers contain no quotation marks, so the line can be split from its right end.
    void attributes(const std::vector<std::string>& fixed) {
        std::string_view rest = content_;
        if (depth_ != 2 || !rest.starts_with(fixed.front())) fail(fixed.front());
        rest.remove_prefix(fixed.front().size());
        if (!rest.ends_with(fixed.back()) || rest.find('\r') != std::string_view::npos) fail(fixed.back());
        rest.remove_suffix(fixed.back().size());
        std::string behind(fixed.back());
        for (std::size_t i = fixed.size() - 1; i-- > 1;) {
            const std::size_t place = rest.rfind(fixed[i]);
            if (place == std::string_view::npos) fail(fixed[i]);
            behind.insert(0, fixed[i] + escaped(rest.substr(place + fixed[i].size())));
            rest = rest.substr(0, place);
        }
        print(fixed.front() + escaped(rest) + behind);
    }

    // Everything below a unit. Without recursion, because branches may nest deeply.
    void tags() {
        constexpr std::size_t kDepth = 4;
        std::vector<std::string_view> branches;  // the open ones
        for (;;) {
            const std::size_t depth = kDepth + branches.size();
            if (depth_ == depth && content_ == "<tag>") {
                item(depth);
            } else if (begins(depth, "<")) {
                if (content_.size() < 2 || !content_.ends_with('>')) fail(">");
                const std::size_t line = at_;
                branches.push_back(content_.substr(1, content_.size() - 2));
                print("<" + nameCarrying(inUtf8(branches.back())) + ">");
                if (upperCased(branches.back()) == "TAG" && begins(depth + 1, "<name>") &&
                    content_.ends_with("</name>")) {
                    at_ = line;
                    fail("<tag>");
                }
            } else if (!branches.empty()) {
                const std::string_view name = branches.back();
                if (depth_ != depth - 1 || content_ != "</" + std::string(name) + ">")
                    fail("</" + std::string(name) + ">");
                print("</" + nameCarrying(inUtf8(name)) + ">");
                branches.pop_back();
            } else {
                return;
            }
        }
    }

    void item(std::size_t depth) {
        line(depth, "<tag>");
        for (const clsItem::Element& element : item_) {
            const std::string start = "<" + std::string(element.name) + ">";
            if (element.required || begins(depth + 1, start)) value(depth + 1, element.name);
        }
        line(depth, "</tag>");
    }

    // A value may continue over several lines. Only its end tag at the end of a line ends it, so markup
    // inside the value does not. A line that begins like one of the writer's is not a continuation.
    void value(std::size_t depth, std::string_view word) {
        const std::string start = "<" + std::string(word) + ">";
        const std::string end = "</" + std::string(word) + ">";
        if (!begins(depth, start)) fail(start);
        const std::size_t first = at_;
        const std::size_t from = at_ + depth + start.size();
        const auto soFar = [&] { return bytes_.substr(from, lineStop() - from); };
        while (!soFar().ends_with(end)) {
            nextLine();
            if (at_ == bytes_.size() || (depth_ >= depth - 1 && content_.starts_with('<'))) {
                at_ = first;
                fail(end);
            }
        }
        const std::string_view text = soFar();
        print(start + escaped(text.substr(0, text.size() - end.size())) + end);
    }

    void line(std::size_t depth, std::string_view content) {
        if (depth_ != depth || content_ != content) fail(content);
        print(content);
    }

    bool begins(std::size_t depth, std::string_view content) const {
        return depth_ == depth && content_.starts_with(content);
    }

    // Prints `content` for the current line and goes to the next one.
    void print(std::string_view content) {
        (out_ += content) += '\n';
        nextLine();
    }

    void nextLine() {
        at_ = std::min(bytes_.find('\n', at_), bytes_.size() - 1) + 1;
        beginLine();
    }
    // A file that was transferred in text mode has line ends without CR.
    std::size_t lineStop() const {
        const std::size_t end = std::min(bytes_.find('\n', at_), bytes_.size());
        return end > at_ && bytes_[end - 1] == '\r' ? end - 1 : end;
    }
    void beginLine() {
        const std::string_view all = bytes_.substr(at_, lineStop() - at_);
        depth_ = std::min(all.find_first_not_of('\t'), all.size());
        content_ = all.substr(depth_);
    }

    [[noreturn]] void fail(std::string_view expected) const {
        const auto here = bytes_.begin() + static_cast<std::ptrdiff_t>(at_);
        throw XmlParseError(1 + static_cast<std::size_t>(std::count(bytes_.begin(), here, '\n')),
                            "expected " + std::string(expected));
    }

    const std::vector<std::string> dataType_ = lineParts("DATATYPE", clsModBusType::fieldNames(), "/>");
    const std::vector<std::string> tcpIpUnit_ = lineParts("PLC", clsPLC::fieldNames(kTcpIp), ">");
    const std::vector<clsItem::Element> item_ = clsItem::elements();
    std::string_view bytes_;
    std::size_t at_ = 0;        // where the current line begins
    std::size_t depth_ = 0;     // its tabs
    std::string_view content_;  // behind them, without the line end
    std::string out_;
};

}  // namespace

std::string mended(std::string_view bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (!bytes.starts_with(kMark)) return Mending(bytes).run();
    if (invalidUtf8(bytes) != std::string_view::npos) throw XmlParseError(1, "expected UTF-8");
    std::string latin1;
    appendLatin1(latin1, bytes.substr(kMark.size()));
    return Mending(latin1).run();
}

}  // namespace trevandix
