#include "check/HostNames.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace trevandix {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

std::vector<std::string_view> parts(std::string_view text, char separator) {
    std::vector<std::string_view> all;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
        all.push_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    all.push_back(text);
    return all;
}

bool isByte(std::string_view text) {
    if (!isDecimal(text) || text.size() > 3 || (text.size() > 1 && text.front() == '0')) return false;
    int value = 0;
    for (const char c : text) value = value * 10 + (c - '0');
    return value <= 255;
}

bool isVersion4(std::string_view text) {
    const auto bytes = parts(text, '.');
    return bytes.size() == 4 && std::ranges::all_of(bytes, isByte);
}

// Up to eight groups of four hexadecimal digits; "::" once, for one or more groups of zeros; an address of
// version 4 may stand for the last two.
bool isVersion6(std::string_view text) {
    constexpr std::size_t kGroups = 8;
    const std::size_t gap = text.find("::");
    const bool shortened = gap != std::string_view::npos;
    std::size_t groups = 0;
    const auto count = [&](std::string_view half, bool last) {
        if (half.empty()) return true;
        const auto all = parts(half, ':');
        for (std::size_t i = 0; i < all.size(); ++i) {
            const bool embedded = last && i + 1 == all.size() && isVersion4(all[i]);
            const bool group =
                !all[i].empty() && all[i].size() <= 4 && std::ranges::all_of(all[i], isHexDigit);
            if (!group && !embedded) return false;
            groups += embedded ? 2 : 1;
        }
        return true;
    };
    if (!shortened) return count(text, true) && groups == kGroups;
    return count(text.substr(0, gap), false) && count(text.substr(gap + 2), true) && groups < kGroups;
}

bool isLabel(std::string_view text) {
    constexpr std::size_t kLongest = 63;
    return !text.empty() && text.size() <= kLongest && text.front() != '-' && text.back() != '-' &&
           std::ranges::all_of(text,
                               [](char c) { return isLetter(c) || isDigit(c) || c == '-' || c == '_'; });
}

}  // namespace

bool isDecimal(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

bool isIpAddress(std::string_view text) {
    return text.find(':') == std::string_view::npos ? isVersion4(text) : isVersion6(text);
}

bool isHostName(std::string_view text) {
    constexpr std::size_t kLongest = 253;
    const auto labels = parts(text, '.');
    return text.size() <= kLongest && std::ranges::all_of(labels, isLabel) && !isDecimal(labels.back());
}

}  // namespace trevandix
