#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "model/Configuration.h"
#include "model/ItemSpan.h"

// What the items of a unit cover of its device's tables, laid out in rows. Spans count bits in the tables of
// registers and addresses in those of bits; every table has the addresses 0 to 65535.

namespace trevandix {

/// An item in its table.
struct Block {
    Key item;
    Span span;  ///< without what reaches beyond the table's end
    std::uint8_t lane = 0;
};

/// What stands in one place of a lane: a block, or in the last lane a pile of blocks that overlap each other.
struct Stack {
    Span span;
    std::uint32_t first;  ///< its first block, by its place in `blocks`
    std::uint32_t count;  ///< of blocks
};

/// A line of a table: the addresses of a row, or several rows in which nothing stands.
struct MapRow {
    std::int64_t first;  ///< address
    std::int64_t last;
    std::uint8_t lanes;  ///< 0 when nothing stands in it

    bool folded(std::int64_t addressesPerRow) const { return last - first >= addressesPerRow; }
};

/// The blocks of one table. Blocks that overlap stand in lanes one below the other. A block keeps its lane in
/// all its rows; of very many blocks in one place, the last lane holds all that the others do not.
class TableMap {
public:
    static constexpr std::size_t kLanes = 3;

    TableMap(const ModbusTable& ofTable, std::vector<Block> blocksInOrderOfTree);

    const ModbusTable* table;
    std::int64_t unit;           ///< `unitsPerAddress`
    std::vector<Block> blocks;   ///< by their beginning, then the longer ones first, then as in the tree
    std::vector<Span> overlaps;  ///< what more than one block covers; ascending and apart from each other
    std::vector<Span> free;      ///< what no block covers, in the same way
    std::int64_t usedAddresses;  ///< of which some part is covered
    Span largestFree;            ///< addresses; the first of several, empty if there is none
    std::vector<MapRow> rows;

    std::int64_t addresses() const { return std::int64_t{kLastAddress} + 1; }
    std::int64_t addressesPerRow() const { return table->registers ? 16 : 64; }
    /// The part of the table that the row shows.
    Span spanOf(const MapRow& row) const { return {row.first * unit, (row.last + 1) * unit}; }
    /// The whole addresses in a part of the table.
    Span wholeAddresses(const Span& span) const { return {(span.begin + unit - 1) / unit, span.end / unit}; }
    /// The place in `rows` of what shows this unit of a span.
    std::size_t rowOf(std::int64_t place) const;
    /// Those that reach into the part of the table, from left to right.
    std::vector<Stack> stacksIn(std::size_t lane, const Span& part) const;
    /// The blocks in the last lane that overlap this one, itself included, in order; else only itself.
    std::vector<std::size_t> pileOf(std::size_t block) const;

private:
    void assignLanes();
    void findFree();
    void foldRows();

    std::vector<Stack> lanes_[kLanes];
};

/// All tables that a unit's items use. Items that have no place are left out.
struct RegisterMap {
    std::vector<TableMap> tables;  ///< in the order of `modbusTables`
    std::vector<Key> homeless;     ///< items of unknown type, or whose `spanOf` is empty

    /// A block by its table's place in `tables` and its own in `blocks`.
    struct Place {
        std::size_t table;
        std::size_t block;
        bool operator==(const Place&) const = default;
    };
    std::optional<Place> find(const Key& item) const;
};

/// Nothing for a node that is no unit of the configuration.
RegisterMap registerMapOf(const Configuration& configuration, const TreeNode& unit);

/// The first place behind `behind` where so much is free, after the last one the first in the table.
/// `atAnyBit`: it may begin inside a register. Nothing if there is none.
std::optional<Span> nextFree(const TableMap& map, std::int64_t length, bool atAnyBit, std::int64_t behind);

}  // namespace trevandix
