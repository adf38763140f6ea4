#include "map/MapLines.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "map/MapWording.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::size_t kMostToldOfPile = 8;
constexpr int kTitleLanes = 2;

MapPart partOfLine(MapPart::Look look, const Span& span, const Span& line, int lane) {
    MapPart part{look,
                 static_cast<int>(std::max(span.begin, line.begin) - line.begin),
                 static_cast<int>(std::min(span.end, line.end) - line.begin),
                 lane,
                 {}};
    part.fromHere = span.begin >= line.begin;
    part.untilHere = span.end <= line.end;
    return part;
}

}  // namespace

void MapLines::replace(RegisterMap map) {
    const std::optional<Block> before = block_ ? std::optional(blockAt(*block_)) : std::nullopt;
    const ModbusTable* table = block_ ? map_.tables[block_->table].table : nullptr;
    map_ = std::move(map);
    block_.reset();
    gap_.reset();
    homeless_ = Key();
    answer_.clear();
    if (map_.tables.empty()) return;
    if (before) block_ = map_.find(before->item);
    if (block_) return;
    const auto same = std::ranges::find(map_.tables, table, &TableMap::table);
    block_ = Place{0, 0};
    if (same == map_.tables.end()) return;
    const auto next = std::ranges::lower_bound(same->blocks, before->span.begin, {},
                                               [](const Block& block) { return block.span.begin; });
    const auto last = static_cast<std::int64_t>(same->blocks.size()) - 1;
    block_ = Place{static_cast<std::size_t>(same - map_.tables.begin()),
                   static_cast<std::size_t>(std::min(next - same->blocks.begin(), last))};
}

Key MapLines::item() const {
    return onBlock() ? itemAt(*block_) : homeless_;
}

void MapLines::setCurrent(const Key& wanted) {
    answer_.clear();
    if (item() == wanted) return;
    const auto found = map_.find(wanted);
    const auto& homeless = map_.homeless;
    if (!found && std::ranges::find(homeless, wanted) == homeless.end()) return;
    gap_.reset();
    homeless_ = found ? Key() : wanted;
    if (found) block_ = found;
}

Key MapLines::nextHomeless() const {
    const auto& all = map_.homeless;
    if (all.empty()) return {};
    const auto current = std::ranges::find(all, homeless_);
    return current == all.end() || current + 1 == all.end() ? all.front() : *(current + 1);
}

void MapLines::setAnswer(std::string answer, const std::optional<Gap>& gap) {
    answer_ = std::move(answer);
    gap_ = gap;
    homeless_ = Key();
}

MapLines::Where MapLines::where(std::size_t line) const {
    std::size_t table = 0;
    while (line >= map_.tables[table].rows.size() + kHead) line -= map_.tables[table++].rows.size() + kHead;
    return {table, line};
}

const MapRow* MapLines::rowAt(const Where& where) const {
    return where.line < kHead ? nullptr : &map_.tables[where.table].rows[where.line - kHead];
}

Span MapLines::partOf(const Where& where) const {
    return map_.tables[where.table].spanOf(*rowAt(where));
}

std::size_t MapLines::lineOf(std::size_t table, std::int64_t place) const {
    std::size_t line = kHead + map_.tables[table].rowOf(place);
    for (std::size_t before = 0; before < table; ++before) line += map_.tables[before].rows.size() + kHead;
    return line;
}

std::size_t MapLines::lineCount() const {
    std::size_t count = 0;
    for (const TableMap& table : map_.tables) count += table.rows.size() + kHead;
    return count;
}

int MapLines::lanes(std::size_t line) const {
    const Where place = where(line);
    if (place.line == 0) return kTitleLanes;
    const MapRow* row = rowAt(place);
    return row == nullptr ? 1 : std::max<int>(row->lanes, 1);
}

MapLine MapLines::line(std::size_t number) const {
    const Where place = where(number);
    const TableMap& table = map_.tables[place.table];
    MapLine line;
    line.cells = static_cast<int>(table.addressesPerRow());
    line.parts = static_cast<int>(table.addressesPerRow() * table.unit);
    line.perNumber = table.table->registers ? 1 : 8;
    if (place.line == 0) {
        line.kind = MapLine::Kind::Title;
        line.text = titleText(table);
    } else if (const MapRow* row = rowAt(place); row == nullptr) {
        line.kind = MapLine::Kind::Scale;
    } else if (row->folded(table.addressesPerRow())) {
        line.kind = MapLine::Kind::Gap;
        line.text = freeText(table, row->first * table.unit);
        addGap(line, place);
    } else {
        line.text = std::to_string(row->first);
        addBlocks(line, place);
        addGap(line, place);
        markOverlaps(line, place);
    }
    return line;
}

std::string MapLines::nameOf(const Block& block) const {
    const TreeNode* node = configuration_.tree.find(block.item);
    return node == nullptr ? std::string() : node->text();
}

void MapLines::addBlocks(MapLine& line, const Where& where) const {
    const TableMap& table = map_.tables[where.table];
    const Span part = partOf(where);
    const bool hasCurrent = onBlock() && block_->table == where.table;
    for (std::size_t lane = 0; lane < TableMap::kLanes; ++lane) {
        for (const Stack& stack : table.stacksIn(lane, part)) {
            MapPart held = partOfLine(MapPart::Look::Block, stack.span, part, static_cast<int>(lane));
            if (stack.count > 1) {
                held.look = MapPart::Look::Pile;
                held.name = std::to_string(stack.count) + " items";
            } else {
                held.name = nameOf(table.blocks[stack.first]);
                held.current = hasCurrent && block_->block == stack.first;
                held.selected = held.current && selected_;
            }
            line.held.push_back(std::move(held));
        }
    }
    if (!hasCurrent) return;
    const Block& block = blockAt(*block_);
    // In a pile, the current block stands in front of the others.
    const bool piled = block.lane + 1U == TableMap::kLanes && table.pileOf(block_->block).size() > 1;
    if (!piled || !block.span.meets(part)) return;
    MapPart held = partOfLine(MapPart::Look::Block, block.span, part, block.lane);
    held.name = nameOf(block);
    held.current = true;
    held.selected = selected_;
    line.held.push_back(std::move(held));
}

void MapLines::addGap(MapLine& line, const Where& where) const {
    const Span part = partOf(where);
    if (!gap_ || gap_->table != map_.tables[where.table].table || !gap_->span.meets(part)) return;
    MapPart held = partOfLine(MapPart::Look::Free, gap_->span, part, 0);
    held.name = "free";
    held.current = held.selected = true;
    if (line.kind == MapLine::Kind::Gap) {
        held.begin = 0;
        held.end = line.parts;
        line.text += "; selected: " + told(*gap_);
    }
    line.held.push_back(std::move(held));
}

void MapLines::markOverlaps(MapLine& line, const Where& where) const {
    const Span part = partOf(where);
    const std::vector<Span>& all = map_.tables[where.table].overlaps;
    for (auto span = std::ranges::upper_bound(all, part.begin, {}, &Span::end);
         span != all.end() && span->begin < part.end; ++span) {
        line.overlaps.push_back({static_cast<int>(std::max(span->begin, part.begin) - part.begin),
                                 static_cast<int>(std::min(span->end, part.end) - part.begin)});
    }
}

std::optional<std::size_t> MapLines::currentTable() const {
    if (!gap_) return block_ ? std::optional(block_->table) : std::nullopt;
    const auto table = std::ranges::find(map_.tables, gap_->table, &TableMap::table);
    if (table == map_.tables.end()) return std::nullopt;
    return static_cast<std::size_t>(table - map_.tables.begin());
}

std::optional<MapPlace> MapLines::current() const {
    const auto table = currentTable();
    if (!table) return std::nullopt;
    const Span span = currentSpan();
    return MapPlace{lineOf(*table, span.begin), lineOf(*table, span.end - 1),
                    gap_ ? 0 : blockAt(*block_).lane};
}

// The block in front of the current place or behind it, in another table if need be.
std::optional<MapLines::Place> MapLines::beside(int step) const {
    const std::size_t table = *currentTable();
    const auto& blocks = map_.tables[table].blocks;
    std::size_t block = 0;
    if (gap_) {
        const auto behind = std::ranges::lower_bound(blocks, gap_->span.end, {},
                                                     [](const Block& each) { return each.span.begin; });
        block = static_cast<std::size_t>(behind - blocks.begin());
    } else {
        block = block_->block + (step > 0 ? 1 : 0);
    }
    if (step < 0 && block > 0) return Place{table, block - 1};
    if (step > 0 && block < blocks.size()) return Place{table, block};
    if (step < 0 && table > 0) return Place{table - 1, map_.tables[table - 1].blocks.size() - 1};
    if (step > 0 && table + 1 < map_.tables.size()) return Place{table + 1, 0};
    return std::nullopt;
}

// Where the current block begins, as a share of the line.
double MapLines::column() const {
    const TableMap& table = map_.tables[*currentTable()];
    const std::int64_t parts = table.addressesPerRow() * table.unit;
    return static_cast<double>(currentSpan().begin % parts) / static_cast<double>(parts);
}

// The block of a line that stands next to the current one's column.
std::optional<MapLines::Place> MapLines::nearest(std::size_t line) const {
    const Where place = where(line);
    const MapRow* row = rowAt(place);
    if (row == nullptr || row->lanes == 0) return std::nullopt;
    const TableMap& table = map_.tables[place.table];
    const Span part = partOf(place);
    const auto wanted = part.begin + static_cast<std::int64_t>(column() * static_cast<double>(part.length()));
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    std::optional<Place> found;
    for (std::size_t lane = 0; lane < TableMap::kLanes; ++lane) {
        for (const Stack& stack : table.stacksIn(lane, part)) {
            const std::int64_t distance =
                std::max({stack.span.begin - wanted, wanted - stack.span.end + 1, std::int64_t{0}});
            if (distance < least) found = Place{place.table, stack.first};
            least = std::min(least, distance);
        }
    }
    return found;
}

// The same in the first line from `line` on that has blocks.
std::optional<MapLines::Place> MapLines::beyond(std::size_t line, int step) const {
    for (const std::size_t count = lineCount(); line < count; step < 0 ? --line : ++line) {
        if (const auto found = nearest(line)) return found;
    }
    return std::nullopt;
}

std::optional<MapLines::Place> MapLines::moved(MapMove move, std::size_t page) const {
    if (map_.tables.empty()) return std::nullopt;
    const Place first{0, 0};
    const auto at = current();
    if (!at) return first;
    const Place last{map_.tables.size() - 1, map_.tables.back().blocks.size() - 1};
    switch (move) {
        case MapMove::Left:
            return beside(-1);
        case MapMove::Right:
            return beside(1);
        case MapMove::Up:
            return beyond(at->first - 1, -1);
        case MapMove::Down:
            return beyond(at->last + 1, 1);
        case MapMove::PageUp:
            return at->first < page ? first : beyond(at->first - page, -1).value_or(first);
        case MapMove::PageDown:
            return beyond(at->last + page, 1).value_or(last);
        case MapMove::Home:
            return first;
        case MapMove::End:
            return last;
    }
    return std::nullopt;
}

// Of a point in a row.
std::int64_t MapLines::placeOf(const MapPoint& point) const {
    const Span part = partOf(where(point.line));
    const auto inPart = static_cast<std::int64_t>(point.across * static_cast<double>(part.length()));
    return std::clamp(part.begin + inPart, part.begin, part.end - 1);
}

std::optional<Stack> MapLines::stackAt(const MapPoint& point) const {
    if (point.line >= lineCount()) return std::nullopt;
    const Where place = where(point.line);
    const MapRow* row = rowAt(place);
    if (row == nullptr || row->lanes <= point.lane) return std::nullopt;
    const std::int64_t at = placeOf(point);
    const auto stacks = map_.tables[place.table].stacksIn(static_cast<std::size_t>(point.lane), {at, at + 1});
    return stacks.empty() ? std::nullopt : std::optional(stacks.front());
}

std::optional<MapLines::Place> MapLines::at(const MapPoint& point) const {
    const auto stack = stackAt(point);
    if (!stack) return std::nullopt;
    const std::size_t table = where(point.line).table;
    if (stack->count == 1) return Place{table, stack->first};
    const auto pile = map_.tables[table].pileOf(stack->first);
    const bool here = onBlock() && block_->table == table;
    const auto current = here ? std::ranges::find(pile, block_->block) : pile.end();
    const auto next = current == pile.end() || current + 1 == pile.end() ? pile.begin() : current + 1;
    return Place{table, *next};
}

std::optional<MapLines::Gap> MapLines::freeBehindCurrent(const ModbusTable& table, std::int64_t length,
                                                         bool bits) const {
    const auto map = std::ranges::find(map_.tables, &table, &TableMap::table);
    if (map == map_.tables.end()) return Gap{&table, {0, length}, bits};
    std::int64_t behind = map->blocks.front().span.begin;
    if (currentTable() == static_cast<std::size_t>(map - map_.tables.begin())) behind = currentSpan().end;
    const auto span = nextFree(*map, length, bits, behind);
    return span ? std::optional(Gap{&table, *span, bits}) : std::nullopt;
}

std::string MapLines::told(const Gap& gap) const {
    return shownPlace(*gap.table, gap.span, gap.bits);
}

// What the current block overlaps: ", overlaps U.a and 2 others".
std::string MapLines::overlapText() const {
    const Block& current = blockAt(*block_);
    const Block* first = nullptr;
    std::size_t count = 0;
    for (const Block& block : map_.tables[block_->table].blocks) {
        if (block.span.begin >= current.span.end) break;
        if (&block == &current || !block.span.meets(current.span)) continue;
        if (count++ == 0) first = &block;
    }
    if (first == nullptr) return {};
    return ", overlaps " + first->item.str() +
           (count > 1 ? " and " + counted(count - 1, "other", "others") : "");
}

std::string MapLines::spoken() const {
    if (!answer_.empty()) return answer_;
    const Key current = item();
    if (current.empty()) return map_.homeless.empty() ? "no items" : "no items with a place";
    std::string text = itemText(configuration_, current);
    for (std::size_t at; (at = text.find('\n')) != std::string::npos;) text.replace(at, 1, ", ");
    return onBlock() ? text + overlapText() : text;
}

std::string MapLines::tip(const MapPoint& point) const {
    if (point.line >= lineCount()) return {};
    const Where place = where(point.line);
    const MapRow* row = rowAt(place);
    if (row == nullptr) return {};
    const TableMap& table = map_.tables[place.table];
    const auto stack = stackAt(point);
    if (!stack) {
        const std::int64_t at = placeOf(point);
        const bool isFree = std::ranges::any_of(table.free, [&](const Span& gap) {
            return gap.meets({at, at + 1}) && !table.wholeAddresses(gap).empty();
        });
        return isFree ? freeText(table, at) : std::string();
    }
    if (stack->count == 1) return itemText(configuration_, table.blocks[stack->first].item);
    std::string text = std::to_string(stack->count) + " items, each click selects the next:";
    const auto pile = table.pileOf(stack->first);
    for (std::size_t i = 0; i < std::min(pile.size(), kMostToldOfPile); ++i)
        text += '\n' + table.blocks[pile[i]].item.str();
    return pile.size() > kMostToldOfPile ? text + "\n..." : text;
}

}  // namespace trevandix
