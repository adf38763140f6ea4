#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace trevandix {

/// What stands in a part of a map's line.
struct MapPart {
    enum class Look { Block, Pile, Free };
    Look look;
    int begin;  ///< in parts of the line
    int end;
    int lane;  ///< from above
    std::string name;
    bool selected = false;
    bool current = false;   ///< the keyboard stands here
    bool fromHere = true;   ///< begins in this line
    bool untilHere = true;  ///< ends in this line
};

struct MapLine {
    /// Title: a heading. Scale: what stands above the cells, numbers. Row: cells with blocks.
    /// Gap: rows without blocks, folded into one.
    enum class Kind { Title, Scale, Row, Gap };
    /// A part of the line that more than one block covers.
    struct Overlap {
        int begin;
        int end;
    };

    Kind kind = Kind::Row;
    std::string text;           ///< heading of one or two lines, address at the edge, or length of the gap
    int cells = 0;              ///< of equal width
    int parts = 0;              ///< of the same width in all cells
    int perNumber = 1;          ///< of a Scale: cells from one number to the next
    std::vector<MapPart> held;  ///< lane by lane, from left to right; the selected ones last
    std::vector<Overlap> overlaps;
};

struct MapPoint {
    std::size_t line;
    double across;  ///< 0 where the first cell begins, 1 where the last one ends
    int lane;
};

/// The lines in which something stands, and its lane there.
struct MapPlace {
    std::size_t first;
    std::size_t last;
    int lane;
    bool operator==(const MapPlace&) const = default;
};

/// What a map shows: lines of one or more lanes. The map asks for the lines that it draws.
class MapContents {
public:
    virtual ~MapContents() = default;
    virtual std::size_t lineCount() const = 0;
    /// The height of a line, at least 1.
    virtual int lanes(std::size_t line) const = 0;
    virtual MapLine line(std::size_t line) const = 0;
    /// Where the keyboard stands.
    virtual std::optional<MapPlace> current() const = 0;
    /// The same in words.
    virtual std::string spoken() const = 0;
    /// What is worth knowing of a point, in a few lines; empty for nothing.
    virtual std::string tip(const MapPoint& point) const = 0;
};

enum class MapMove { Left, Right, Up, Down, PageUp, PageDown, Home, End };

/// What the user does in a map.
struct MapHandlers {
    std::function<void(const MapPoint& point)> click{};
    std::function<void(const MapPoint& point)> open{};  ///< double click
    /// `page` is the number of lines that fit into the window.
    std::function<void(MapMove move, std::size_t page)> move{};
};

}  // namespace trevandix
