#include "model/Key.h"

#include <cstring>
#include <limits>
#include <set>

#include "platform/RuntimeError.h"

namespace trevandix {

Key::Rep* Key::allocate(std::size_t length) {
    if (length > std::numeric_limits<std::uint32_t>::max()) throw RuntimeError(ErrorNumber::OutOfMemory);
    return new (::operator new(sizeof(Rep) + length)) Rep{1, static_cast<std::uint32_t>(length), 0};
}

void Key::seal(Rep* rep) {
    rep->hash = std::hash<std::string_view>{}(std::string_view(characters(rep), rep->length));
}

Key::Key(std::string_view text) {
    if (text.empty()) return;
    rep_ = allocate(text.size());
    std::memcpy(characters(rep_), text.data(), text.size());
    seal(rep_);
}

Key::Key(const Key& container, std::string_view name) {
    const std::string_view head = container.view();
    rep_ = allocate(head.size() + 1 + name.size());
    char* out = characters(rep_);
    if (!head.empty()) std::memcpy(out, head.data(), head.size());
    out[head.size()] = '.';
    if (!name.empty()) std::memcpy(out + head.size() + 1, name.data(), name.size());
    seal(rep_);
}

std::string_view Key::parent() const {
    return parentKey(view());
}

std::string_view parentKey(std::string_view key) {
    const std::size_t dot = key.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : key.substr(0, dot);
}

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
