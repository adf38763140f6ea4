#include "model/InternedText.h"

#include <set>

namespace trevandix {

namespace {
std::set<std::string, std::less<>>& pool() {
    static std::set<std::string, std::less<>> texts{std::string()};
    return texts;
}
}  // namespace

InternedText::InternedText() {
    static const std::string* const empty = &*pool().begin();
    text_ = empty;
}

InternedText::InternedText(std::string_view text) {
    auto& texts = pool();
    auto place = texts.find(text);
    if (place == texts.end()) place = texts.emplace(text).first;
    text_ = &*place;
}

}  // namespace trevandix
