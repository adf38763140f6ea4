// Runs the fuzz targets on all seeds and on every input that once revealed a fault, both unchanged and
// mutated.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "FakePlatform.h"
#include "Targets.h"

namespace trevandix::testing {

namespace {

// Truncates, repeats or changes random parts.
std::string mangled(std::string bytes, std::mt19937& random) {
    for (int change = 0; change < 3 && !bytes.empty(); ++change) {
        const auto at = random() % bytes.size();
        const auto way = random() % 3;
        if (way == 0) bytes.resize(at + 1);
        if (way == 1) bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 300));
        if (way == 2) bytes[at] = static_cast<char>(random() % 256);
    }
    return bytes;
}

}  // namespace

TEST(FuzzRegression, EveryKnownInputIsHandled) {
    using Target = void (*)(std::string_view);
    const std::vector<std::pair<std::string, Target>> targets{
        {"Reader", fuzz::Reader},       {"Mending", fuzz::Mending}, {"TypeNames", fuzz::TypeNames},
        {"Clipboard", fuzz::Clipboard}, {"Csv", fuzz::Csv},         {"Commands", fuzz::Commands}};
    std::mt19937 random(5);
    for (const auto& [name, target] : targets) {
        int inputs = 0;
        for (const char* folder : {"corpus", "regressions"}) {
            const auto path = std::filesystem::path(TREVANDIX_FUZZ_INPUTS) / folder / name;
            if (!std::filesystem::exists(path)) continue;
            for (const auto& entry : std::filesystem::directory_iterator(path)) {
                const std::string bytes = readFile(entry.path());
                EXPECT_NO_THROW(target(bytes)) << entry.path();
                for (int round = 0; round < 50; ++round)
                    EXPECT_NO_THROW(target(mangled(bytes, random))) << entry.path() << " " << round;
                ++inputs;
            }
        }
        EXPECT_GT(inputs, 0) << name;
    }
}

}  // namespace trevandix::testing
