#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace trevandix {

/// Names are the same when they are exactly the same.
struct Exactly {
    static std::size_t hash(std::string_view name) { return std::hash<std::string_view>{}(name); }
    static bool same(std::string_view left, std::string_view right) { return left == right; }
};

/// Names that differ in capitals only are the same.
struct WhateverTheCapitals {
    static std::size_t hash(std::string_view name) {
        std::size_t hash = 0;
        for (std::size_t at = 0; at < name.size();) hash = hash * 31 + upperCased(nextCodePoint(name, at));
        return hash;
    }
    static bool same(std::string_view left, std::string_view right) {
        return compareIgnoringCase(left, right) == 0;
    }
};

/// Gives numbers from 1 on to names below a number: the same one to the same name. The names must stay.
template <typename Sameness>
class NameNumbers {
public:
    explicit NameNumbers(std::size_t expected) : cells_(16) {
        while (cells_.size() * 3 < expected * 4) cells_.resize(cells_.size() * 2);
        entries_.reserve(expected + 1);
    }

    std::uint32_t number(std::uint32_t below, std::string_view name) {
        if (entries_.size() * 4 > cells_.size() * 3) grow();
        const std::size_t hash = mixed(Sameness::hash(name) + below * kMixer);
        std::size_t place = hash & mask();
        for (; cells_[place] != 0; place = (place + 1) & mask()) {
            const Entry& entry = entries_[cells_[place]];
            if (entry.hash == hash && entry.below == below && Sameness::same(entry.name, name))
                return cells_[place];
        }
        entries_.push_back({hash, name, below});
        return cells_[place] = static_cast<std::uint32_t>(entries_.size() - 1);
    }

    /// All numbers are below this.
    std::size_t size() const { return entries_.size(); }

private:
    struct Entry {
        std::size_t hash = 0;
        std::string_view name{};
        std::uint32_t below = 0;
    };
    static constexpr std::size_t kMixer = 0x9E3779B97F4A7C15;

    static std::size_t mixed(std::size_t hash) {
        hash = (hash ^ (hash >> 32)) * kMixer;
        return hash ^ (hash >> 29);
    }
    std::size_t mask() const { return cells_.size() - 1; }
    void grow() {
        std::vector<std::uint32_t> larger(cells_.size() * 2);
        cells_.swap(larger);
        for (std::uint32_t i = 1; i < entries_.size(); ++i) {
            std::size_t place = entries_[i].hash & mask();
            while (cells_[place] != 0) place = (place + 1) & mask();
            cells_[place] = i;
        }
    }

    std::vector<Entry> entries_{Entry{}};  // number 0 is nobody's
    std::vector<std::uint32_t> cells_;     // as many as a power of two, at most three in four in use
};

/// Who has the same number as whom. Members are told by any numbers of their own.
class Sharers {
public:
    explicit Sharers(std::size_t numbers) : groups_(numbers) {}

    void add(std::uint32_t number, std::uint32_t member) {
        Group& group = groups_[number];
        if (group.count < 2) group.members[group.count] = member;
        ++group.count;
    }
    std::size_t count(std::uint32_t number) const { return groups_[number].count; }
    /// The first member besides this one; there are two.
    std::uint32_t partner(std::uint32_t number, std::uint32_t member) const {
        const Group& group = groups_[number];
        return group.members[group.members[0] == member ? 1 : 0];
    }

private:
    struct Group {
        std::uint32_t members[2] = {0, 0};
        std::uint32_t count = 0;
    };
    std::vector<Group> groups_;
};

}  // namespace trevandix
