#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "check/Survey.h"

namespace trevandix {

/// Where an item of a known type lies, as a user reads it: "holding register 100 bit 3", "coil 5 to 8".
std::string shownPlace(const ItemFacts& item);

/// Where the items of one unit lie. Refers to the survey.
class Places {
public:
    Places(const Survey& survey, const TreeNode& unit);

    /// Of the items that share registers or bits with the span, the one that ends last; nullptr for none.
    const ItemFacts* in(const ModbusTable& table, const Span& span) const;

    /// What lies at an address: of several items the one that begins last.
    struct Found {
        const ItemFacts* at = nullptr;
        const ItemFacts* before = nullptr;  ///< where nothing lies at the address: the nearest in front of it
        const ItemFacts* behind = nullptr;
    };
    Found find(const ModbusTable& table, std::int32_t address) const;

    const TreeNode& nodeOf(const ItemFacts& item) const { return *survey_.objects[item.object].node; }

private:
    struct Place {
        Span span;
        const ItemFacts* item;
        const ItemFacts* longest;  ///< of the places so far, the item that ends last
        std::int64_t end;          ///< where that one ends
    };
    using Row = std::vector<Place>;  // sorted by where they begin
    const Row& row(const ModbusTable& table) const;

    const Survey& survey_;
    std::map<const ModbusTable*, Row> rows_;
};

}  // namespace trevandix
