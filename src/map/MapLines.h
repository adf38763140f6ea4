#pragma once

#include <optional>
#include <string>

#include "map/RegisterMap.h"
#include "platform/MapContents.h"

namespace trevandix {

/// The map of a unit as lines: each table with a title and a scale, then its rows. Knows the current block,
/// from which the arrow keys go on.
class MapLines : public MapContents {
public:
    using Place = RegisterMap::Place;
    /// A free part of a table.
    struct Gap {
        const ModbusTable* table;
        Span span;
        bool bits = false;  ///< one that is to hold bits, which may begin inside a register
    };

    /// `configuration` must outlive it.
    explicit MapLines(const Configuration& configuration) : configuration_(configuration) {}

    const RegisterMap& map() const { return map_; }
    /// Takes another map. The current block follows its item; if that is gone, the next one takes its place.
    void replace(RegisterMap map);

    /// The item of the current block, or the current one of those without a place. Empty while there is none,
    /// or a gap is current.
    Key item() const;
    const Key& itemAt(const Place& place) const { return blockAt(place).item; }
    /// Makes an item's block the current one, or the item itself if it has no place. Does nothing for an item
    /// that the map does not have.
    void setCurrent(const Key& item);
    /// The item without a place behind the current one, after the last one the first; empty if there is none.
    Key nextHomeless() const;
    /// Says what came of a search for a gap, and makes the gap current and selected if there is one. This
    /// lasts until an item is made current or the map is replaced.
    void setAnswer(std::string answer, const std::optional<Gap>& gap);
    /// Whether the current block is selected, too.
    void setSelected(bool selected) { selected_ = selected; }

    /// The block that a key moves to; nothing if there is none.
    std::optional<Place> moved(MapMove move, std::size_t page) const;
    /// The block at the point; of a pile the one behind the current one.
    std::optional<Place> at(const MapPoint& point) const;
    /// The first gap of this length behind the current block or gap, after the last one the first in the
    /// table; `bits` as in `Gap`. In a table without blocks, its beginning. Nothing if none is long enough.
    std::optional<Gap> freeBehindCurrent(const ModbusTable& table, std::int64_t length, bool bits) const;
    /// "holding register 236 to 237"
    std::string told(const Gap& gap) const;

    std::size_t lineCount() const override;
    int lanes(std::size_t line) const override;
    MapLine line(std::size_t line) const override;
    std::optional<MapPlace> current() const override;
    std::string spoken() const override;
    std::string tip(const MapPoint& point) const override;

private:
    /// A line: its table and its place there.
    struct Where {
        std::size_t table;
        std::size_t line;
    };
    static constexpr std::size_t kHead = 2;  // lines of a table in front of its rows: title and scale
    const Block& blockAt(const Place& place) const { return map_.tables[place.table].blocks[place.block]; }
    Where where(std::size_t line) const;
    /// True while the current block is not hidden by a gap or an item without a place.
    bool onBlock() const { return block_ && !gap_ && homeless_.empty(); }
    /// The place of the current block's or gap's table; nothing also for a gap in a table without blocks.
    std::optional<std::size_t> currentTable() const;
    Span currentSpan() const { return gap_ ? gap_->span : blockAt(*block_).span; }
    const MapRow* rowAt(const Where& where) const;
    std::size_t lineOf(std::size_t table, std::int64_t place) const;
    std::int64_t placeOf(const MapPoint& point) const;
    std::optional<Stack> stackAt(const MapPoint& point) const;
    Span partOf(const Where& where) const;
    std::optional<Place> beside(int step) const;
    std::optional<Place> nearest(std::size_t line) const;
    std::optional<Place> beyond(std::size_t line, int step) const;
    double column() const;
    std::string nameOf(const Block& block) const;
    std::string overlapText() const;
    void addBlocks(MapLine& line, const Where& where) const;
    void addGap(MapLine& line, const Where& where) const;
    void markOverlaps(MapLine& line, const Where& where) const;

    const Configuration& configuration_;
    RegisterMap map_;
    std::optional<Place> block_;
    std::optional<Gap> gap_;
    Key homeless_;        ///< current instead of the block; else empty
    std::string answer_;  ///< of the last search; empty if something else is current since
    bool selected_ = false;
};

}  // namespace trevandix
