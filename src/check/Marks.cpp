#include "check/Marks.h"

#include <array>

#include "platform/Text.h"

namespace trevandix {

namespace {

// Marks that need a second look.
constexpr Marks kBracket = 64;
constexpr Marks kBeyondAscii = 128;

constexpr std::array<Marks, 256> kMarkOfByte = [] {
    std::array<Marks, 256> marks{};
    for (unsigned byte = 0; byte < marks.size(); ++byte) {
        if (byte >= 0x80)
            marks[byte] = kBeyondAscii;
        else if (isControl(byte))
            marks[byte] = kControl;
        else if (byte >= 'a' && byte <= 'z')
            marks[byte] = kSmall;
    }
    marks['<'] = marks['&'] = kMarkup;
    marks['>'] = kBracket;
    marks['"'] = kQuote;
    marks['.'] = kDot;
    marks[' '] = kBlankAtEnd;
    return marks;
}();

bool holdsControl(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (isControl(nextCodePoint(text, at))) return true;
    }
    return false;
}

}  // namespace

Marks marksOf(std::string_view text) {
    unsigned found = 0;
    for (const char c : text) found |= kMarkOfByte[static_cast<unsigned char>(c)];
    if ((found & kBracket) != 0 && text.find("]]>") != std::string_view::npos) found |= kMarkup;
    if ((found & kBeyondAscii) != 0) found |= kSmall;
    if ((found & kBeyondAscii) != 0 && holdsControl(text)) found |= kControl;
    if ((found & kBlankAtEnd) != 0 && text.front() != ' ' && text.back() != ' ')
        found &= ~unsigned{kBlankAtEnd};
    return static_cast<Marks>(found & ~unsigned{kBracket | kBeyondAscii});
}

}  // namespace trevandix
