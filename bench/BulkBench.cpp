// Many items changed at once, and copies of a unit: judged, applied and undone.
#include <benchmark/benchmark.h>

#include <memory>
#include <optional>

#include "FakePlatform.h"
#include "PlantFile.h"
#include "table/Duplication.h"
#include "table/ItemsEdit.h"
#include "xmlfile/ConfigurationReader.h"

namespace trevandix::bench {

namespace {

enum class Part { Judge, Apply, Undo };

// Times one part of what `plan` makes of an opened plant.
template <typename Plan>
void measure(benchmark::State& state, Part part, Plan plan) {
    for (auto _ : state) {
        state.PauseTiming();
        auto plant = std::make_unique<Configuration>();
        plant->begin("plant.xml");
        PugiXmlParser parser;
        if (!ConfigurationReader(*plant, parser).read(plantFile(static_cast<std::size_t>(state.range(0)))))
            std::abort();
        plant->endLoad();
        const auto timed = [&](Part each, auto work) {
            if (each == part) state.ResumeTiming();
            work();
            if (each == part) state.PauseTiming();
        };
        std::optional<ChangeSet> changes;
        timed(Part::Judge, [&] { changes = plan(*plant); });
        timed(Part::Apply, [&] { changes->apply(*plant); });
        timed(Part::Undo, [&] { plant->undo(); });
        const bool good = changes->accepted() >= static_cast<std::size_t>(state.range(0));
        changes.reset();
        plant.reset();
        state.ResumeTiming();
        if (!good) return state.SkipWithError("did not do its work");
    }
}

void ChangeItems(benchmark::State& state, Part part) {
    measure(state, part, [](const Configuration& plant) {
        const TreeNode* root = plant.tree.root();
        ItemsEdit edit{.values = {{&ItemFields::comment, "changed"}},
                       .start = ItemPlace{},
                       .replacement = {&ItemFields::name, "i", "j", true}};
        return changeItems(plant, itemsIn({&root, 1}), edit);
    });
}

void DuplicateUnits(benchmark::State& state, Part part) {
    measure(state, part, [](const Configuration& plant) {
        TreeNode& unit = plant.tree.at(plant.units.last()->sKey());
        return duplicate(plant, unit, {.name = "Copy1", .copies = plant.units.size(), .identifier = "101"});
    });
}

#define SIZES Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(5)
BENCHMARK_CAPTURE(ChangeItems, Judge, Part::Judge)->SIZES;
BENCHMARK_CAPTURE(ChangeItems, Apply, Part::Apply)->SIZES;
BENCHMARK_CAPTURE(ChangeItems, Undo, Part::Undo)->SIZES;
BENCHMARK_CAPTURE(DuplicateUnits, Judge, Part::Judge)->SIZES;
BENCHMARK_CAPTURE(DuplicateUnits, Apply, Part::Apply)->SIZES;
BENCHMARK_CAPTURE(DuplicateUnits, Undo, Part::Undo)->SIZES;
#undef SIZES

}  // namespace

}  // namespace trevandix::bench
