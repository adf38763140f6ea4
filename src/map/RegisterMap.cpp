#include "map/RegisterMap.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace trevandix {

namespace {

constexpr std::int64_t kLeastFolded = 2;  // rows

// The next node of a walk that goes into branches only.
const TreeNode* following(const TreeNode& node, const TreeNode& unit) {
    const bool enter = &node == &unit || node.tag() == NodeTag::Branch;
    if (enter && node.firstChild() != nullptr) return node.firstChild();
    const TreeNode* up = &node;
    while (up != &unit && up->nextSibling() == nullptr) up = up->parent();
    return up == &unit ? nullptr : up->nextSibling();
}

}  // namespace

TableMap::TableMap(const ModbusTable& ofTable, std::vector<Block> blocksInOrderOfTree)
    : table(&ofTable), unit(unitsPerAddress(ofTable)), blocks(std::move(blocksInOrderOfTree)) {
    std::ranges::stable_sort(blocks, {},
                             [](const Block& block) { return std::pair(block.span.begin, -block.span.end); });
    assignLanes();
    findFree();
    foldRows();
}

// Each block goes into the first lane that is free where it begins. As the blocks come in order, one number
// for each lane says from where on it is free.
void TableMap::assignLanes() {
    std::array<std::int64_t, kLanes> ends{};
    std::int64_t reach = 0;  // end of all blocks so far
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        Block& block = blocks[i];
        const Span& span = block.span;
        const auto vacant = std::ranges::find_if(ends, [&](std::int64_t end) { return end <= span.begin; });
        const bool piled = vacant == ends.end();
        const auto firstFree = static_cast<std::size_t>(vacant - ends.begin());
        block.lane = static_cast<std::uint8_t>(piled ? kLanes - 1 : firstFree);
        std::vector<Stack>& lane = lanes_[block.lane];
        if (piled) {
            Stack& pile = lane.back();
            pile.span.end = std::max(pile.span.end, span.end);
            ++pile.count;
        } else {
            lane.push_back({span, static_cast<std::uint32_t>(i), 1});
        }
        ends[block.lane] = lane.back().span.end;
        if (span.begin < reach) {
            const Span overlap{span.begin, std::min(span.end, reach)};
            if (overlaps.empty() || overlaps.back().end < overlap.begin)
                overlaps.push_back(overlap);
            else
                overlaps.back().end = std::max(overlaps.back().end, overlap.end);
        }
        reach = std::max(reach, span.end);
    }
}

void TableMap::findFree() {
    const std::int64_t end = addresses() * unit;
    std::int64_t reach = 0;
    for (const Block& block : blocks) {
        if (block.span.begin > reach) free.push_back({reach, block.span.begin});
        reach = std::max(reach, block.span.end);
    }
    if (reach < end) free.push_back({reach, end});
    usedAddresses = addresses();
    for (const Span& gap : free) {
        const Span whole = wholeAddresses(gap);
        if (whole.empty()) continue;
        usedAddresses -= whole.length();
        if (whole.length() > largestFree.length()) largestFree = whole;
    }
}

void TableMap::foldRows() {
    const std::int64_t rowUnits = addressesPerRow() * unit;
    std::vector<std::uint8_t> lanes(static_cast<std::size_t>(addresses() / addressesPerRow()));
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        for (const Stack& stack : lanes_[lane]) {
            for (std::int64_t row = stack.span.begin / rowUnits; row <= (stack.span.end - 1) / rowUnits;
                 ++row)
                lanes[static_cast<std::size_t>(row)] = static_cast<std::uint8_t>(lane + 1);
        }
    }
    for (auto row = lanes.begin(); row != lanes.end();) {
        auto next = row + 1;
        if (*row == 0) {
            next = std::find_if(row, lanes.end(), [](std::uint8_t count) { return count > 0; });
            if (next - row < kLeastFolded) next = row + 1;
        }
        rows.push_back({(row - lanes.begin()) * addressesPerRow(),
                        (next - lanes.begin()) * addressesPerRow() - 1, *row});
        row = next;
    }
}

std::size_t TableMap::rowOf(std::int64_t place) const {
    const auto row = std::ranges::lower_bound(rows, place / unit, {}, &MapRow::last);
    return static_cast<std::size_t>(row - rows.begin());
}

std::vector<Stack> TableMap::stacksIn(std::size_t lane, const Span& part) const {
    const std::vector<Stack>& all = lanes_[lane];
    const auto end = [](const Stack& stack) { return stack.span.end; };
    const auto begin = [](const Stack& stack) { return stack.span.begin; };
    return {std::ranges::upper_bound(all, part.begin, {}, end),
            std::ranges::lower_bound(all, part.end, {}, begin)};
}

std::vector<std::size_t> TableMap::pileOf(std::size_t block) const {
    if (blocks[block].lane + 1U < kLanes) return {block};
    const Stack pile = stacksIn(kLanes - 1, blocks[block].span).front();
    std::vector<std::size_t> found;
    for (std::size_t i = pile.first; found.size() < pile.count; ++i) {
        if (blocks[i].lane + 1U == kLanes) found.push_back(i);
    }
    return found;
}

std::optional<RegisterMap::Place> RegisterMap::find(const Key& item) const {
    for (std::size_t table = 0; table < tables.size(); ++table) {
        const auto& blocks = tables[table].blocks;
        const auto block = std::ranges::find(blocks, item, &Block::item);
        if (block != blocks.end()) return Place{table, static_cast<std::size_t>(block - blocks.begin())};
    }
    return std::nullopt;
}

RegisterMap registerMapOf(const Configuration& configuration, const TreeNode& unit) {
    RegisterMap map;
    if (unitAround(configuration, &unit) != &unit) return map;
    std::unordered_map<const std::string*, StoredType> types;  // by the texts' place in the pool
    std::unordered_map<const ModbusTable*, std::vector<Block>> blocks;
    for (const TreeNode* node = following(unit, unit); node != nullptr; node = following(*node, unit)) {
        if (node->tag() != NodeTag::Item) continue;
        const auto record = configuration.items.find(node->key());
        if (record == nullptr) continue;
        const std::string& text = record->sDataType();
        const StoredType& type = types.try_emplace(&text, text).first->second;
        Span span;
        if (type.known()) {
            span = spanOf(*type.table, *type.value, {record->nAddress(), record->nBitNumber()},
                          record->nElements());
            span.end = std::min(span.end, wholeOf(*type.table).end);
        }
        if (span.empty())
            map.homeless.push_back(node->key());
        else
            blocks[type.table].push_back({node->key(), span});
    }
    for (const ModbusTable& table : modbusTables()) {
        const auto found = blocks.find(&table);
        if (found != blocks.end()) map.tables.emplace_back(table, std::move(found->second));
    }
    return map;
}

std::optional<Span> nextFree(const TableMap& map, std::int64_t length, bool atAnyBit, std::int64_t behind) {
    std::optional<Span> first;
    for (const Span& gap : map.free) {
        const auto placeFrom = [&](std::int64_t begin) -> std::optional<Span> {
            if (!atAnyBit) begin = (begin + map.unit - 1) / map.unit * map.unit;
            if (begin + length > gap.end) return std::nullopt;
            return Span{begin, begin + length};
        };
        if (!first) first = placeFrom(gap.begin);
        if (gap.end <= behind) continue;
        if (const auto place = placeFrom(std::max(gap.begin, behind))) return place;
    }
    return first;
}

}  // namespace trevandix
