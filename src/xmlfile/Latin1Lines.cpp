#include "xmlfile/Latin1Lines.h"

#include <array>
#include <charconv>

#include "platform/Text.h"

namespace trevandix {

void appendLatin1(std::string& out, std::string_view text) {
    if (isAscii(text)) {
        out += text;
        return;
    }
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextCodePoint(text, at);
        if (c <= 0xFF) {
            out += static_cast<char>(static_cast<unsigned char>(c));
            continue;
        }
        std::array<char, 8> digits;
        const auto [end, error] =
            std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<unsigned>(c), 16);
        out.append("&#x").append(upperCased(std::string_view(digits.data(), end))) += ';';
    }
}

void Latin1Lines::endLine() {
    if (!isAscii(line_)) {
        std::string latin1;
        appendLatin1(latin1, line_);
        line_.swap(latin1);
    }
    line_ += "\r\n";
    file_.write(line_);
}

}  // namespace trevandix
