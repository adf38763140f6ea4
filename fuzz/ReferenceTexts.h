#pragma once

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <optional>
#include <string>

#include "Reference.h"

namespace trevandix::testing {

using Texts = Reference::Texts;

inline std::string capitals(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

inline std::string cut(const std::string& key) {
    const std::size_t dot = key.rfind('.');
    return dot == std::string::npos ? "" : key.substr(0, dot);
}

inline bool begins(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

inline bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

inline std::string joined(const Texts& texts) {
    return std::accumulate(texts.begin(), texts.end(), std::string(),
                           [](const std::string& all, const std::string& each) { return all + each + "|"; });
}

inline Texts pieces(const std::string& text, const std::string& separator) {
    Texts parts;
    std::size_t from = 0;
    for (std::size_t end = 0; end != std::string::npos; from = end + separator.size()) {
        end = text.find(separator, from);
        parts.push_back(text.substr(from, end == std::string::npos ? end : end - from));
    }
    return parts;
}

inline double leading(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

inline std::optional<double> numberOf(const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0') return {};
    return number;
}

/// Rounds halves to even; empty when out of range.
inline std::string whole(double number, double least, double most) {
    const double rounded = std::nearbyint(number);
    if (rounded < least || rounded > most) return "";
    return std::to_string(static_cast<long long>(rounded));
}

inline bool takesElements(const std::string& label) {
    return holds(label, "array") || label == "string";
}

/// Appends the value to a list that lacks it.
inline void withOwn(Reference::Box& list, const std::string& own) {
    if (std::ranges::count(list.items, own) == 0) list.items.push_back(own);
    list.text = own;
}

}  // namespace trevandix::testing
