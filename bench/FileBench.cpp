// Reading and writing a plant's file, beside a bare parse and a raw write of the same bytes.
#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <pugixml.hpp>

#include "FakePlatform.h"
#include "PlantFile.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix::bench {

namespace {

using testing::readFile;

// Resident bytes of this process.
std::size_t resident() {
    std::ifstream statm("/proc/self/statm");
    std::size_t pages = 0;
    statm >> pages >> pages;
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

struct Loaded {
    testing::FakeMessages messages;
    testing::FakePointer pointer;
    PugiXmlParser parser;
    Configuration configuration;

    void read(const std::string& path) {
        configuration.state.filePath = path;
        configuration.buildRoot();
        ConfigurationReader reader(configuration, parser, messages, pointer, [] {});
        if (!reader.ImportXML(path)) std::abort();
    }
};

// The number that `measure` returns in a process of its own. A program reads its file with a fresh heap; in one
// process the frees of one run would be paid in the middle of the next, by whichever benchmark follows.
template <typename Measure>
double inNewProcess(Measure measure) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) std::abort();
    const pid_t child = fork();
    if (child == 0) {
        const double result = measure();
        _exit(write(ends[1], &result, sizeof(result)) == sizeof(result) ? 0 : 1);
    }
    close(ends[1]);
    double result = 0;
    int status = 0;
    const bool got = read(ends[0], &result, sizeof(result)) == sizeof(result);
    close(ends[0]);
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0 || !got) std::abort();
    return result;
}

// Of processor time, so that what else runs on the machine counts as little as it can.
template <typename Work>
double seconds(Work work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

const std::string& fileOf(const benchmark::State& state) {
    return plantFile(static_cast<std::size_t>(state.range(0)));
}

void perItem(benchmark::State& state) {
    state.counters["per_item"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Neither reading is charged with freeing what it leaves behind.
void BareParse(benchmark::State& state) {
    const std::string& path = fileOf(state);
    for (auto _ : state) {
        state.SetIterationTime(inNewProcess([&] {
            pugi::xml_document document;
            return seconds([&] {
                if (!document.load_file(path.c_str())) std::abort();
            });
        }));
    }
    perItem(state);
}

void Read(benchmark::State& state) {
    const std::string& path = fileOf(state);
    for (auto _ : state) {
        state.SetIterationTime(inNewProcess([&] {
            Loaded loaded;
            return seconds([&] { loaded.read(path); });
        }));
    }
    perItem(state);
}

void RawWrite(benchmark::State& state) {
    const std::string bytes = readFile(fileOf(state));
    for (auto _ : state) {
        std::remove(outputFile().c_str());
        std::FILE* file = std::fopen(outputFile().c_str(), "wb");
        if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
        std::fclose(file);
    }
    perItem(state);
}

void Write(benchmark::State& state) {
    Loaded loaded;
    loaded.read(fileOf(state));
    for (auto _ : state) {
        ConfigurationWriter writer(loaded.configuration, loaded.messages, loaded.pointer);
        if (!writer.CreateXML(outputFile())) std::abort();
    }
    perItem(state);
}

void Memory(benchmark::State& state) {
    const std::string& path = fileOf(state);
    for (auto _ : state) {
        const double bytes = inNewProcess([&] {
            const std::size_t before = resident();
            Loaded loaded;
            loaded.read(path);
            return static_cast<double>(resident() - before);
        });
        state.counters["bytes_per_item"] = bytes / static_cast<double>(state.range(0));
    }
}

BENCHMARK(BareParse)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(Read)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(RawWrite)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Write)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Memory)->Arg(100'000)->Arg(1'000'000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace trevandix::bench
