// Reads and writes configuration files, compared with a bare parse and a raw write of the same bytes.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
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

// Resident memory of this process in bytes.
std::size_t resident() {
    std::ifstream statm("/proc/self/statm");
    std::size_t pages = 0;
    statm >> pages >> pages;
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

// Peak resident memory of this process in bytes.
std::size_t mostResident() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return static_cast<std::size_t>(used.ru_maxrss) * 1024;
}

struct Loaded {
    PugiXmlParser parser;
    Configuration configuration;

    void read(const std::string& path) {
        configuration.begin(path);
        if (!ConfigurationReader(configuration, parser).read(path)) std::abort();
    }
};

using Measure = double (*)(const char* path);

// Runs each measurement in a new process, forked from a server that has done nothing else, so that each
// starts with a fresh heap. In one process the result would depend on the benchmarks that ran before.
class FreshProcesses {
public:
    FreshProcesses() {
        if (pipe(orders_.data()) != 0 || pipe(results_.data()) != 0) std::abort();
        const pid_t server = fork();
        if (server < 0) std::abort();
        close(orders_[server == 0 ? 1 : 0]);
        if (server == 0) serve();
        close(results_[1]);
    }

    double run(Measure measure, const std::string& path) const {
        Order order{measure, {}};
        if (path.size() >= order.path.size()) std::abort();
        path.copy(order.path.data(), path.size());
        double result = 0;
        if (write(orders_[1], &order, sizeof(order)) != sizeof(order)) std::abort();
        if (read(results_[0], &result, sizeof(result)) != sizeof(result)) std::abort();
        return result;
    }

private:
    struct Order {
        Measure measure;
        std::array<char, 512> path;
    };

    // Ends with the benchmarks or when a measurement fails.
    [[noreturn]] void serve() const {
        Order order{};
        int status = 0;
        while (status == 0 && read(orders_[0], &order, sizeof(order)) == sizeof(order)) {
            const pid_t child = fork();
            if (child == 0) {
                const double result = order.measure(order.path.data());
                _exit(write(results_[1], &result, sizeof(result)) == sizeof(result) ? 0 : 1);
            }
            if (child < 0 || waitpid(child, &status, 0) != child) status = 1;
        }
        _exit(status == 0 ? 0 : 1);
    }

    std::array<int, 2> orders_{};
    std::array<int, 2> results_{};
};

const FreshProcesses freshProcesses;

// CPU time, because it depends least on what else the machine does.
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

// Neither time includes freeing the result.
double bareParse(const char* path) {
    pugi::xml_document document;
    return seconds([&] {
        if (!document.load_file(path)) std::abort();
    });
}

double readAll(const char* path) {
    Loaded loaded;
    return seconds([&] { loaded.read(path); });
}

void BareParse(benchmark::State& state) {
    for (auto _ : state) state.SetIterationTime(freshProcesses.run(bareParse, fileOf(state)));
    perItem(state);
}

/// The ratio of two times, measured alternately so that other work on the machine affects both.
class Ratio {
public:
    void add(double own, double yardstick) {
        own_ += own;
        yardstick_ += yardstick;
    }
    double value() const { return own_ / yardstick_; }

private:
    double own_ = 0;
    double yardstick_ = 0;
};

void Read(benchmark::State& state) {
    Ratio ratio;
    for (auto _ : state) {
        const double bare = freshProcesses.run(bareParse, fileOf(state));
        const double own = freshProcesses.run(readAll, fileOf(state));
        ratio.add(own, bare);
        state.SetIterationTime(own);
    }
    state.counters["times_bare"] = ratio.value();
    perItem(state);
}

// Wall-clock time, because a save waits for the disk (the raw write does not).
template <typename Work>
double elapsed(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double rawWrite(const std::string& bytes) {
    // Not the file that is saved: deleting a synced file takes longer.
    const std::string path = outputFile() + ".raw";
    return elapsed([&] {
        std::remove(path.c_str());
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
        std::fclose(file);
    });
}

void RawWrite(benchmark::State& state) {
    const std::string bytes = readFile(fileOf(state));
    for (auto _ : state) state.SetIterationTime(rawWrite(bytes));
    perItem(state);
}

void Write(benchmark::State& state) {
    const std::string bytes = readFile(fileOf(state));
    Loaded loaded;
    loaded.read(fileOf(state));
    Ratio ratio;
    for (auto _ : state) {
        const double raw = rawWrite(bytes);
        const double own = elapsed([&] { ConfigurationWriter(loaded.configuration).write(outputFile()); });
        ratio.add(own, raw);
        state.SetIterationTime(own);
    }
    state.counters["times_raw"] = ratio.value();
    perItem(state);
}

// Memory used after reading, and the peak while reading.
void Memory(benchmark::State& state) {
    for (auto _ : state) {
        const auto kept = [](const char* path) {
            const std::size_t before = resident();
            Loaded loaded;
            loaded.read(path);
            return static_cast<double>(resident() - before);
        };
        const auto peak = [](const char* path) {
            Loaded loaded;
            loaded.read(path);
            return static_cast<double>(mostResident());
        };
        state.counters["bytes_per_item"] =
            freshProcesses.run(kept, fileOf(state)) / static_cast<double>(state.range(0));
        state.counters["peak_MiB"] = freshProcesses.run(peak, fileOf(state)) / 1024 / 1024;
    }
}

#define SIZES Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->UseManualTime()
BENCHMARK(BareParse)->SIZES;
BENCHMARK(Read)->SIZES;
BENCHMARK(RawWrite)->SIZES;
BENCHMARK(Write)->SIZES;
#undef SIZES
BENCHMARK(Memory)->Arg(100'000)->Arg(1'000'000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace trevandix::bench
