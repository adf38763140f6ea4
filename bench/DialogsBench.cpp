// Adds groups of items and renames units through the dialogs, without a screen.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "Plant.h"

namespace trevandix::bench {

namespace {

using namespace trevandix::testing;

// A group of `range(0)` items in one branch. The cost per item must not grow with the number of siblings.
void addGroup(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto place =
            std::make_unique<PlantedWorkplace>(Texts{"ModBus.holding register", "Unit", "Unit.Branch/"});
        place->checks = false;
        place->at("Unit.Branch");
        state.ResumeTiming();
        runDialog(*place, "mnuAddItem", [&](FakeForm& form) {
            form.fill(
                "txtItemName=First|cmbModbusType=holding register|cmbDataType=signed 16 bit|"
                "txtAddress=1|cmbAccessRight=READ|cmdGroup|txtNumbItems=" +
                std::to_string(state.range(0)) + "|cmdOkNumber");
        });
        state.PauseTiming();
        if (place->configuration.items.size() != static_cast<std::size_t>(state.range(0))) std::abort();
        place.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(addGroup)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMillisecond);

// Renames a unit with `range(0)` items in 100 branches.
void renameUnit(benchmark::State& state) {
    PlantedWorkplace place({"Unit0"});
    place.checks = false;
    for (int branch = 0; branch < 100; ++branch)
        plantBranch(place.configuration, place.node("Unit0"), "Branch" + std::to_string(branch));
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        plantItem(place.configuration, place.node("Unit0.Branch" + std::to_string(i % 100)),
                  "Item" + std::to_string(i));
    }
    int name = 0;
    for (auto _ : state) {
        const std::string key = "Unit" + std::to_string(name);
        const std::string fields = "txtName=Unit" + std::to_string(++name) + "|cmdOk";
        place.forms.scripts.emplace_back([&](FakeForm& form) { form.fill(fields); });
        place.edit(key);
    }
    if (place.configuration.items.last()->getParentKey().find(std::to_string(name)) ==
        std::string_view::npos) {
        std::abort();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(renameUnit)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace trevandix::bench
