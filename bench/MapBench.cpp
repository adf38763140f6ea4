// Lays out the register map of one unit with all items of a plant, and the lines of a page of it.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "Plant.h"
#include "map/MapLines.h"

namespace trevandix::bench {

namespace {

// Half of them words in both register tables, the others bits of holding registers, which partly overlap
// them.
void plantUnit(Configuration& configuration, std::size_t items) {
    configuration.begin("");
    testing::plantUnit(configuration, "U");
    TreeNode& unit = configuration.tree.at(Key("U"));
    for (std::size_t i = 0; i < items; ++i) {
        clsItem& item = testing::plantItem(configuration, unit, "Item_" + std::to_string(i));
        const auto number = static_cast<std::int32_t>(i % 65536);
        item.sDataType(i % 2 == 0   ? "holding register:boolean"
                       : i % 4 == 1 ? "input register:signed 16 bit"
                                    : "holding register:32 bit float");
        item.nAddress(i % 2 == 0 ? number / 3 : number);
        item.nBitNumber(static_cast<std::int16_t>(i % 16));
    }
}

void MapOfUnit(benchmark::State& state) {
    Configuration configuration;
    plantUnit(configuration, static_cast<std::size_t>(state.range(0)));
    const TreeNode& unit = configuration.tree.at(Key("U"));
    MapLines lines(configuration);
    for (auto _ : state) {
        lines.replace(registerMapOf(configuration, unit));
        benchmark::DoNotOptimize(lines.lineCount());
    }
}

void MapPage(benchmark::State& state) {
    constexpr std::size_t kLinesOfPage = 50;
    Configuration configuration;
    plantUnit(configuration, static_cast<std::size_t>(state.range(0)));
    MapLines lines(configuration);
    lines.replace(registerMapOf(configuration, configuration.tree.at(Key("U"))));
    std::size_t first = 0;
    for (auto _ : state) {
        for (std::size_t line = first; line < first + kLinesOfPage; ++line)
            benchmark::DoNotOptimize(lines.line(line).held.size());
        first = (first + kLinesOfPage) % (lines.lineCount() - 2 * kLinesOfPage);
    }
}

#define SIZES Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)
BENCHMARK(MapOfUnit)->SIZES;
BENCHMARK(MapPage)->SIZES;
#undef SIZES

}  // namespace

}  // namespace trevandix::bench
