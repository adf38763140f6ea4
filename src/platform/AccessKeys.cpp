#include "platform/AccessKeys.h"

namespace trevandix {

namespace {

// 0 for what is no letter or digit; independent of the locale.
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
