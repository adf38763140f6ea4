// Tables of many items, from the bytes of the file to the changed configuration and back.
#include <benchmark/benchmark.h>

#include <memory>

#include "FakePlatform.h"
#include "PlantFile.h"
#include "table/ChangeSet.h"
#include "xmlfile/ConfigurationReader.h"

namespace trevandix::bench {

namespace {

struct Opened : Configuration {
    explicit Opened(std::size_t size) {
        begin("plant.xml");
        PugiXmlParser parser;
        if (!ConfigurationReader(*this, parser).read(plantFile(size))) std::abort();
        endLoad();
    }
};

void TableExport(benchmark::State& state) {
    const Opened plant(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const std::string file = csvFile(exportTable(plant, NodeTag::Item), Separator::Semicolon);
        benchmark::DoNotOptimize(file.data());
    }
}

// `edit` changes the exported rows before they are imported, header excluded.
template <typename Edit>
void importRows(benchmark::State& state, Edit edit) {
    const auto items = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto plant = std::make_unique<Opened>(items);
        std::vector<Cells> rows = exportTable(*plant, NodeTag::Item);
        for (std::size_t i = 1; i < rows.size(); ++i) edit(rows[i]);
        const std::string file = csvFile(rows, Separator::Semicolon);
        state.ResumeTiming();
        const Table table = readTable(file);
        const ChangeSet changes(*plant, table);
        changes.apply(*plant);
        state.PauseTiming();
        const bool good = changes.accepted() == items;
        plant.reset();
        state.ResumeTiming();
        if (!good) return state.SkipWithError("did not do its work");
    }
}

void TableImport(benchmark::State& state) {
    importRows(state, [](Cells& row) {
        row[4] += " changed";
        row[6] = row[6] == "1" ? "2" : "1";
        row[8] = "32 bit float";
        row[7] = "";
    });
}

void TableImportNames(benchmark::State& state) {
    importRows(state, [](Cells& row) { row[3] = row[2] + "_b"; });
}

void TableImportNew(benchmark::State& state) {
    importRows(state, [](Cells& row) {
        row[1] += "_New";
        row[10] = "READ";
    });
}

#define SIZES Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(5)
BENCHMARK(TableExport)->SIZES;
BENCHMARK(TableImport)->SIZES;
BENCHMARK(TableImportNames)->SIZES;
BENCHMARK(TableImportNew)->SIZES;
#undef SIZES

}  // namespace

}  // namespace trevandix::bench
