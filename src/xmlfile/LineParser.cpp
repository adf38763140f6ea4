#include "xmlfile/LineParser.h"

#include <algorithm>
#include <array>

#include "model/clsPLC.h"
#include "xmlfile/FormatWords.h"

namespace trevandix {

namespace {

constexpr std::size_t kUnitDepth = 2;
constexpr std::size_t kTagsDepth = 3;

}  // namespace

LineParser::LineParser(std::string& text, std::vector<LineNode>& nodes, References references)
    : text_(text), nodes_(nodes), references_(references) {
    nodes_.reserve(static_cast<std::size_t>(std::ranges::count(text, '\n')) + 2);
    nodes_.emplace_back();  // nobody's: 0 stands for none
    open_.push_back({0, 0});
}

void LineParser::parse() {
    expect(kProlog);
    if (at("\n")) lineEnd_ = "\n";  // a copy that was made as a text file on the way
    expect(lineEnd_);
    if (const auto nul = text_.find('\0'); nul != std::string::npos) {
        at_ = nul;
        fail("text, not a NUL byte");
    }
    const FileKind& tcpIp = *fileKindOf(kTcpIp);
    const FileKind& rtu = *fileKindOf(kRtu);
    const bool isRtu = at("<" + std::string(rtu.rootTag));
    const std::string root((isRtu ? rtu : tcpIp).rootTag);
    open({at_ + 1, root.size()});
    wholeLine(0, "<" + root + ">");
    open({at_ + 2, 6});
    wholeLine(1, "<MODBUS>");
    dataTypes();
    close();
    wholeLine(1, "</MODBUS>");
    open({at_ + 2, 6});
    wholeLine(1, "<OPC_DA>");
    units(isRtu);
    close();
    wholeLine(1, "</OPC_DA>");
    wholeLine(0, "</" + root + ">");
    if (at_ != text_.size()) fail("the end of the file");
}

void LineParser::dataTypes() {
    constexpr std::array<std::string_view, 4> kParts{"<DATATYPE name=\"", "\" readcode = \"",
                                                     "\" writecode=\"", "\" singlewrcode=\""};
    while (atLine(kUnitDepth, kParts[0])) {
        std::size_t start = expectLine(kUnitDepth, kParts[0]);
        open({start + 1, 8});
        Range name{start + 10, 4};
        for (std::size_t part = 1; part < kParts.size(); ++part) {
            const Range value = upTo(kParts[part]);
            start = at_ - kParts[part].size();
            addAttribute(name, value);
            name = {start + 2, kParts[part].find_first_of(" =", 2) - 2};
        }
        addAttribute(name, upTo("\"/>" + lineEnd_));
        close();
    }
}

void LineParser::units(bool rtu) {
    while (atLine(kUnitDepth, "<PLC")) {
        open({at_ + kUnitDepth + 1, 3});
        if (rtu)
            unitElements();
        else
            unitAttributes();
        open({at_ + kTagsDepth + 1, 4});
        wholeLine(kTagsDepth, "<tags>");
        tags();
        close();
        close();
        wholeLine(kUnitDepth, "</PLC>");
    }
}

// Numbers hold no quotation marks, so everything is certain from the right; only between name and address a
// text in quotation marks decides.
void LineParser::unitAttributes() {
    constexpr std::string_view kStart = "<PLC name=\"", kAddress = "\" address = \"", kId = "\" id=\"",
                               kTimeout = "\" timeout=\"";
    const std::size_t start = expectLine(kUnitDepth, kStart);
    const std::size_t lineStart = at_;
    (((ending_ = "\">") += lineEnd_) += tabs(kTagsDepth)) += "<tags>";
    const Range all = upTo(ending_);
    at_ = lineStart;
    const std::string_view body = view(all);
    const std::size_t timeout = body.rfind(kTimeout);
    const std::size_t id = body.substr(0, timeout).rfind(kId);
    if (timeout == std::string_view::npos || id == std::string_view::npos) fail("id and timeout");
    const std::size_t address = body.substr(0, id).find(kAddress);
    if (address == std::string_view::npos) fail("an address");
    const auto range = [&](std::size_t from, std::size_t to) { return Range{all.at + from, to - from}; };
    const auto value = [&](std::size_t mark, std::string_view text, std::size_t end) {
        return range(mark + text.size(), end);
    };
    const auto name = [&](std::size_t mark, std::size_t length) { return Range{all.at + mark + 2, length}; };
    const Range timeoutText = value(timeout, kTimeout, body.size());
    addAttribute({start + 5, 4}, range(0, address));
    addAttribute(name(address, 7), value(address, kAddress, id));
    addAttribute(name(id, 2), value(id, kId, timeout));
    addAttribute(name(timeout, 7), timeoutText);
    at_ = timeoutText.at + timeoutText.length;
    expect("\">" + lineEnd_);
}

void LineParser::unitElements() {
    constexpr std::array<std::string_view, 10> kNames{"name",    "id",       "com",      "baudrate",
                                                      "parity",  "stopbits", "databits", "flowcontrol",
                                                      "timeout", "silent"};
    wholeLine(kUnitDepth, "<PLC>");
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        element(kTagsDepth, kNames[i], i + 1 < kNames.size() ? kNames[i + 1] : "tags");
    }
}

void LineParser::tags() {
    const std::size_t outside = open_.size();
    for (std::size_t depth = kTagsDepth + 1;;) {
        if (atLine(depth, "<")) {
            if (itemFollows(depth))
                item(depth);
            else
                branchStart(depth++);
        } else if (open_.size() > outside) {
            branchEnd(--depth);
        } else {
            return wholeLine(kTagsDepth, "</tags>");
        }
    }
}

// A branch may be called "tag" as well; only the name behind it makes it an item.
bool LineParser::itemFollows(std::size_t depth) {
    if (!atLine(depth, "<tag>" + lineEnd_)) return false;
    const std::size_t start = at_;
    at_ += depth + 5 + lineEnd_.size();
    bool item = atLine(depth + 1, "<name>");
    if (item) {
        (ending_ = "</name>") += lineEnd_;
        const std::size_t nameEnd = text_.find(lineEnd_, at_);
        item = nameEnd != std::string::npos && view({at_, nameEnd - at_}).ends_with("</name>");
        at_ = nameEnd + lineEnd_.size();
        item = item && atLine(depth + 1, "<comment>");
    }
    at_ = start;
    return item;
}

void LineParser::item(std::size_t depth) {
    open({at_ + depth + 1, 3});
    wholeLine(depth, "<tag>");
    element(depth + 1, "name", "comment");
    element(depth + 1, "comment", "address");
    element(depth + 1, "address", "datatype");
    element(depth + 1, "datatype", "accessrights");
    plainElement(depth + 1, "accessrights");
    if (atLine(depth + 1, "<databit>")) plainElement(depth + 1, "databit");
    if (atLine(depth + 1, "<elements>")) plainElement(depth + 1, "elements");
    close();
    wholeLine(depth, "</tag>");
}

void LineParser::branchStart(std::size_t depth) {
    expectLine(depth, "<");
    open(decoded(upTo(">" + lineEnd_)));
}

void LineParser::branchEnd(std::size_t depth) {
    expectLine(depth, "</");
    const std::size_t start = at_;
    const Range name = decoded(upTo(">" + lineEnd_));
    const LineNode& branch = nodes_[open_.back().node];
    if (view(name) != view({branch.nameAt, branch.nameLength})) {
        at_ = start;
        fail("the end of the branch that is open");
    }
    close();
}

void LineParser::element(std::size_t depth, std::string_view name, std::string_view follower) {
    const Range place = elementStart(depth, name);
    const std::size_t start = at_;
    std::size_t lineStop = text_.find(lineEnd_, at_);
    while (lineStop != std::string::npos && !view({start, lineStop - start}).ends_with(ending_)) {
        at_ = lineStop + lineEnd_.size();
        lineStop = structureFollows(depth - 1) ? std::string::npos : text_.find(lineEnd_, at_);
    }
    at_ = lineStop == std::string::npos ? start : lineStop + lineEnd_.size();
    if (at_ == start || !atLine(depth, ("<" + std::string(follower)) += '>')) {
        at_ = start;
        fail("</" + std::string(name) + "> and <" + std::string(follower) + "> behind it");
    }
    addChild(place, {start, lineStop - ending_.size() - start});
}

// What begins like the writer's own lines: then a value has no end of its own, and what follows is no part of
// it.
bool LineParser::structureFollows(std::size_t depth) {
    if (!at(tabs(depth))) return false;
    const std::size_t first = text_.find_first_not_of('\t', at_);
    return first != std::string::npos && text_[first] == '<';
}

void LineParser::plainElement(std::size_t depth, std::string_view name) {
    const Range place = elementStart(depth, name);
    addChild(place, upTo(ending_ += lineEnd_));
}

LineParser::Range LineParser::elementStart(std::size_t depth, std::string_view name) {
    const Range place{expectLine(depth, "<") + 1, name.size()};
    expect(name);
    expect(">");
    ((ending_ = "</") += name) += '>';
    return place;
}

std::string_view LineParser::tabs(std::size_t depth) {
    if (tabs_.size() < depth) tabs_.resize(depth, '\t');
    return std::string_view(tabs_).substr(0, depth);
}

bool LineParser::atLine(std::size_t depth, std::string_view begin) {
    return at(tabs(depth)) && view({at_ + depth, begin.size()}) == begin;
}

std::size_t LineParser::expect(std::string_view expected) {
    if (!at(expected)) fail(expected);
    const std::size_t place = at_;
    at_ += expected.size();
    return place;
}

std::size_t LineParser::expectLine(std::size_t depth, std::string_view begin) {
    if (!atLine(depth, begin)) fail(begin);
    at_ += depth;
    return expect(begin);
}

void LineParser::wholeLine(std::size_t depth, std::string_view line) {
    expectLine(depth, line);
    expect(lineEnd_);
}

LineParser::Range LineParser::upTo(std::string_view end) {
    const std::size_t place = text_.find(end, at_);
    if (place == std::string::npos || place > text_.find(lineEnd_, at_))
        fail(end.substr(0, end.find_first_of("\r\n")));
    const Range range{at_, place - at_};
    at_ = place + end.size();
    return range;
}

void LineParser::fail(std::string_view expected) const {
    const auto line = 1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at_), '\n');
    const bool lineBreak = expected == "\r\n" || expected == "\n";
    throw XmlParseError(
        static_cast<std::size_t>(line),
        "expected " + (lineBreak ? std::string("the end of the line") : std::string(expected)));
}

void LineParser::open(Range name) {
    addChild(name, {name.at, 0});
    open_.push_back({static_cast<std::uint32_t>(nodes_.size() - 1), 0});
}

void LineParser::addChild(Range name, Range value) {
    const std::uint32_t index = add(name, value);
    Open& parent = open_.back();
    (parent.lastChild == 0 ? nodes_[parent.node].firstChild : nodes_[parent.lastChild].next) = index;
    parent.lastChild = index;
}

void LineParser::addAttribute(Range name, Range value) {
    const std::uint32_t element = open_.back().node;
    const std::uint32_t index = add(name, value);
    nodes_[index].next = nodes_[element].attributes;
    nodes_[element].attributes = index;
}

std::uint32_t LineParser::add(Range name, Range value) {
    const Range text = decoded(value);
    LineNode node;
    node.nameAt = static_cast<std::uint32_t>(name.at);
    node.nameLength = static_cast<std::uint32_t>(name.length);
    node.valueAt = static_cast<std::uint32_t>(text.at);
    node.valueLength = static_cast<std::uint32_t>(text.length);
    nodes_.push_back(node);
    return static_cast<std::uint32_t>(nodes_.size() - 1);
}

LineParser::Range LineParser::decoded(Range range) {
    return {range.at, decodeReferences(text_.data() + range.at, range.length, references_)};
}

}  // namespace trevandix
