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
            return c != 0;
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

namespace {

// Upper case, or 0 for a character that is no letter or digit. Independent of the locale.
char keyFor(char character) {
    if (character >= 'a' && character <= 'z') return static_cast<char>(character - 'a' + 'A');
    const bool isKey = (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9');
    return isKey ? character : '\0';
}

bool startsWord(std::string_view text, std::size_t at) {
    return at == 0 || keyFor(text[at - 1]) == 0;
}

}  // namespace

char AccessKeys::keyOf(std::string_view caption) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != '&') continue;
        if (const char key = keyFor(caption[++at])) return key;
    }
    return 0;
}

void AccessKeys::reserve(std::string_view caption) {
    if (const char key = keyOf(caption)) used_.insert(key);
}

std::string AccessKeys::marked(std::string_view caption, char previous) {
    std::string result(caption);
    if (previous != 0) used_.erase(previous);
    if (keyOf(caption) != 0) {
        reserve(caption);
        return result;
    }
    for (const bool anywhere : {false, true}) {
        for (std::size_t at = 0; at < caption.size(); ++at) {
            const char key = keyFor(caption[at]);
            if (key == 0 || !(anywhere || startsWord(caption, at))) continue;
            if (used_.insert(key).second) return result.insert(at, 1, '&');
        }
    }
    return result;
}

}  // namespace trevandix
