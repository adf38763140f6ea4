// Checks a plant with nothing wrong, and one with 10,000 more items that overlap each other. Compared with
// reading the plant.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <ctime>

#include "Plant.h"
#include "PlantFile.h"
#include "check/Check.h"
#include "xmlfile/ConfigurationReader.h"

namespace trevandix::bench {

namespace {

struct Loaded {
    PugiXmlParser parser;
    Configuration configuration;
    double seconds = 0;  // CPU time of reading

    explicit Loaded(std::size_t items) {
        const std::string& path = plantFile(items);
        const std::clock_t start = std::clock();
        configuration.begin(path);
        if (!ConfigurationReader(configuration, parser).read(path)) std::abort();
        seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    }
};

// Adds a unit with so many items, each of which overlaps all the others.
void pile(Configuration& configuration, std::size_t items) {
    clsPLC& unit = testing::plantUnit(configuration, "PILE");
    unit.setTimeout(1000);
    TreeNode& node = configuration.tree.at(unit.sKey());
    for (std::size_t i = 0; i < items; ++i) {
        clsItem& item = testing::plantItem(configuration, node, "Item_" + std::to_string(i));
        item.sDataType("holding register:signed 16 bit array");
        item.nElements(100);
        item.nAddress(static_cast<std::int32_t>(i % 100));
    }
}

void check(benchmark::State& state, std::size_t overlapping) {
    Loaded loaded(static_cast<std::size_t>(state.range(0)));
    if (overlapping > 0) pile(loaded.configuration, overlapping);
    std::size_t findings = 0;
    const std::clock_t start = std::clock();
    for (auto _ : state) findings = check(loaded.configuration).value().size();
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    if (findings != overlapping) state.SkipWithError("other findings than those made");
    state.counters["times_read"] = seconds / static_cast<double>(state.iterations()) / loaded.seconds;
}

void Check(benchmark::State& state) {
    check(state, 0);
}
void CheckOverlapping(benchmark::State& state) {
    check(state, 10'000);
}

#define SIZES Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)
BENCHMARK(Check)->SIZES;
BENCHMARK(CheckOverlapping)->SIZES;
#undef SIZES

}  // namespace

}  // namespace trevandix::bench
