// Editing commands on many items, without a screen. Each should take time proportional to the items it
// changes.
#include <benchmark/benchmark.h>

#include <numeric>

#include "FakePlatform.h"

namespace trevandix::bench {

namespace {

using testing::FakeForm;
using testing::Workplace;

constexpr std::size_t kItemsPerBranch = 100;

/// As opened from a file: unit U with a branch A of that many items and an empty branch B, and a unit V with
/// 100,000 items that no command changes. The tree and the list show branch A; all of its rows are selected.
struct Plant : Workplace {
    explicit Plant(std::size_t items) {
        checks = false;
        newConfiguration(kTcpIp);
        build([&](TreeNode& branch) { fill(branch, items); });
        click("U.A");
        selectAll();
    }
    /// `fillBranch` fills branch A.
    template <typename FillBranch>
    void build(FillBranch fillBranch) {
        constexpr std::size_t kBystanders = 100'000;
        configuration.clearTree();
        configuration.begin("plant.xml");
        fill(addBranch(addUnit("V"), "A"), kBystanders);
        TreeNode& unit = addUnit("U");
        fillBranch(addBranch(unit, "A"));
        addBranch(unit, "B");
        configuration.endLoad();
    }
    TreeNode& addUnit(const char* name) {
        clsPLC record;
        record.setName(name);
        record.sKey(name);
        return configuration.addUnit(std::move(record));
    }
    TreeNode& addBranch(TreeNode& parent, const std::string& name) {
        clsBranch record;
        record.sName(name);
        record.sKey(Key(parent.key(), name));
        return configuration.addBranch(std::move(record), parent);
    }
    void fill(TreeNode& branch, std::size_t items) {
        for (std::size_t i = 0; i < items; ++i) {
            clsItem record;
            record.sName("Item_" + std::to_string(i));
            record.sKey(Key(branch.key(), record.sName()));
            record.sDataType("holding register:signed 16 bit");
            record.sAccessRight("READ");
            configuration.addItem(std::move(record), branch);
        }
    }
    void selectAll() {
        window.focus = FocusedView::List;
        display.selected.resize(list.rows().size());
        std::iota(display.selected.begin(), display.selected.end(), std::size_t{0});
    }
};

/// Accepts only the question before a deletion.
bool onlyAsked(const std::vector<std::string>& messages) {
    return messages.empty() || (messages.size() == 1 && messages[0].starts_with("Are you sure"));
}

/// Times one command, with a new configuration for each run.
template <typename Prepare, typename Command, typename Good>
void measure(benchmark::State& state, Prepare prepare, Command command, Good good) {
    const auto items = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto plant = std::make_unique<Plant>(items);
        prepare(*plant, items);
        plant->messages.take();
        state.ResumeTiming();
        command(*plant);
        state.PauseTiming();
        if (!good(*plant, items) || !onlyAsked(plant->messages.texts))
            state.SkipWithError("did not do its work");
        plant.reset();
        state.ResumeTiming();
    }
    state.counters["per_item"] =
        benchmark::Counter(static_cast<double>(items),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::size_t below(Plant& plant, std::string_view key) {
    return plant.node(key).childCount();
}

void copyItems(benchmark::State& state) {
    measure(
        state, [](Plant&, std::size_t) {}, [](Plant& plant) { plant.editor.commandChosen("mnuCopy"); },
        [](Plant& plant, std::size_t items) {
            return plant.configuration.state.copyBuffer.size() == items + 1;
        });
}

void pasteItems(benchmark::State& state) {
    measure(
        state,
        [](Plant& plant, std::size_t) {
            plant.run("mnuCopy");
            plant.click("U.B");
        },
        [](Plant& plant) { plant.editor.commandChosen("mnuPaste"); },
        [](Plant& plant, std::size_t items) { return below(plant, "U.B") == items; });
}

void deleteItems(benchmark::State& state) {
    measure(
        state, [](Plant&, std::size_t) {}, [](Plant& plant) { plant.editor.commandChosen("mnuDelete"); },
        [](Plant& plant, std::size_t) { return below(plant, "U.A") == 0; });
}

// Taking back what `deleteItems` does.
void undoDelete(benchmark::State& state) {
    measure(
        state, [](Plant& plant, std::size_t) { plant.editor.commandChosen("mnuDelete"); },
        [](Plant& plant) { plant.editor.commandChosen("mnuUndo"); },
        [](Plant& plant, std::size_t items) { return below(plant, "U.A") == items; });
}

void pasteNames(benchmark::State& state) {
    measure(
        state,
        [](Plant& plant, std::size_t items) {
            // Each item takes the name of the row before it, which is the hardest case.
            std::string& text = plant.clipboard.contents;
            text = plant.list.rows().back().text + "\r\n";
            for (std::size_t i = 0; i + 1 < items; ++i) text += plant.list.rows()[i].text + "\r\n";
            plant.forms.scripts.assign({[](FakeForm& form) { form.press("Command2"); }});
        },
        [](Plant& plant) { plant.editor.commandChosen("mnuPasteName"); },
        [](Plant& plant, std::size_t) {
            return !plant.configuration.state.saved && plant.list.rows()[1].text == "Item_0";
        });
}

void dragBranch(benchmark::State& state) {
    measure(
        state,
        [](Plant& plant, std::size_t items) {
            // 100 items per branch, as is usual.
            plant.build([&](TreeNode& branch) {
                for (std::size_t i = 0; i * kItemsPerBranch < items; ++i)
                    plant.fill(plant.addBranch(branch, "S" + std::to_string(i)), kItemsPerBranch);
            });
            plant.editor.TreeView1_MouseDown(&plant.node("U.A"), {});
            plant.editor.TreeView1_OLEStartDrag();
            plant.editor.TreeView1_OLEDragOver(&plant.node("U.B"));
        },
        [](Plant& plant) { plant.editor.TreeView1_OLEDragDrop(); },
        [](Plant& plant, std::size_t items) { return below(plant, "U.B.A") * kItemsPerBranch >= items; });
}

void findLast(benchmark::State& state) {
    measure(
        state,
        [](Plant& plant, std::size_t) {
            plant.run("mnuFind");
            plant.forms.last->type("txtFind", "b");
        },
        [](Plant& plant) { plant.forms.last->press("cmdFind"); },
        [](Plant& plant, std::size_t) { return plant.configuration.tree.selected() == &plant.node("U.B"); });
}

#define SIZES Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(5)
BENCHMARK(copyItems)->SIZES;
BENCHMARK(pasteItems)->SIZES;
BENCHMARK(deleteItems)->SIZES;
BENCHMARK(undoDelete)->SIZES;
BENCHMARK(pasteNames)->SIZES;
BENCHMARK(dragBranch)->SIZES;
BENCHMARK(findLast)->SIZES;

}  // namespace

}  // namespace trevandix::bench
