#include "platform/Form.h"

#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kBreaks = "\r\n\t";

}  // namespace

bool keeps(KeyFilter filter, char32_t c) {
    const bool digit = c >= '0' && c <= '9';
    switch (filter) {
        case KeyFilter::None:
            return true;
        case KeyFilter::Numeric:
            return digit || c == '-' || c == '.' || c == 8 || c == 9 || c == 10 || c == 13 || c == ' ';
        case KeyFilter::ItemName:
            return digit || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '_' ||
                   c == 8;
    }
    return true;
}

std::string entered(KeyFilter filter, std::string_view text) {
    text = text.substr(0, text.find_first_of(kBreaks));
    std::string kept;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextCodePoint(text, at);
        if (keeps(filter, c)) appendUtf8(kept, c);
    }
    return kept;
}

std::string BoxText::oneLine(std::string_view text) {
    std::string line(text);
    for (char& c : line) {
        if (kBreaks.find(c) != std::string_view::npos) c = ' ';
    }
    return line;
}

}  // namespace trevandix
