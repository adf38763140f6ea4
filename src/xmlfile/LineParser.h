#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmlfile/LineDocument.h"

namespace trevandix {

/// Takes the writer's lines apart. A value ends where its line ends with the fixed text that the writer puts
/// behind it, so that no markup inside a value can be taken for its end, nor the lines behind a damaged one
/// for its rest.
class LineParser {
public:
    /// Fills `nodes`, the root at 1, and decodes character references inside `text`.
    LineParser(std::string& text, std::vector<LineNode>& nodes, References references);

    /// Errors: XmlParseError where the text is not as the writer makes it.
    void parse();

private:
    struct Range {
        std::size_t at;
        std::size_t length;
    };
    struct Open {
        std::uint32_t node;
        std::uint32_t lastChild;
    };

    void dataTypes();
    void units(bool rtu);
    void unitAttributes();
    void unitElements();
    void tags();
    bool itemFollows(std::size_t depth);
    void item(std::size_t depth);
    void branchStart(std::size_t depth);
    void branchEnd(std::size_t depth);
    /// One "<name>value</name>", behind which a line begins with `depth` tabs and `follower`. A value may go
    /// on over lines that do not begin like the file's own.
    void element(std::size_t depth, std::string_view name, std::string_view follower);
    bool structureFollows(std::size_t depth);
    /// One such line with nothing known of the line behind it; no line break can be in the value.
    void plainElement(std::size_t depth, std::string_view name);
    /// Moves past "<name>" and prepares its end to be searched for. Gives the place of the name.
    Range elementStart(std::size_t depth, std::string_view name);

    std::string_view tabs(std::size_t depth);
    std::string_view view(Range range) const {
        return std::string_view(text_).substr(range.at, range.length);
    }
    bool at(std::string_view expected) const { return view({at_, expected.size()}) == expected; }
    bool atLine(std::size_t depth, std::string_view begin);
    /// Moves past the text, which has to stand here; gives its place.
    std::size_t expect(std::string_view expected);
    std::size_t expectLine(std::size_t depth, std::string_view begin);
    void wholeLine(std::size_t depth, std::string_view line);
    /// Everything up to `end`, which begins in the same line, moving past it.
    Range upTo(std::string_view end);
    [[noreturn]] void fail(std::string_view expected) const;

    /// Begins a child of the innermost open element.
    void open(Range name);
    void close() { open_.pop_back(); }
    void addChild(Range name, Range value);
    void addAttribute(Range name, Range value);
    std::uint32_t add(Range name, Range value);
    Range decoded(Range range);

    std::string& text_;
    std::vector<LineNode>& nodes_;
    References references_;
    std::string lineEnd_ = "\r\n";
    std::string tabs_;
    std::string ending_;      // what is searched for, kept to save its memory
    std::vector<Open> open_;  // outermost first
    std::size_t at_ = 0;
};

}  // namespace trevandix
