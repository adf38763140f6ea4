// Replays the seeds of the fuzzers and every input that once found a fault.
#include <gtest/gtest.h>

#include <filesystem>

#include "FakePlatform.h"
#include "Targets.h"

namespace trevandix::testing {

TEST(FuzzRegression, EveryKnownInputIsHandled) {
    using Target = void (*)(std::string_view);
    const std::vector<std::pair<std::string, Target>> targets{
        {"Reader", fuzz::Reader},
        {"Fallback", fuzz::Fallback},
        {"TypeNames", fuzz::TypeNames},
        {"Clipboard", fuzz::Clipboard},
        {"Commands", [](std::string_view bytes) { fuzz::Commands(bytes); }}};
    for (const auto& [name, target] : targets) {
        int inputs = 0;
        for (const char* folder : {"corpus", "regressions"}) {
            const auto path = std::filesystem::path(TREVANDIX_FUZZ_INPUTS) / folder / name;
            if (!std::filesystem::exists(path)) continue;
            for (const auto& entry : std::filesystem::directory_iterator(path)) {
                EXPECT_NO_THROW(target(readFile(entry.path()))) << entry.path();
                ++inputs;
            }
        }
        EXPECT_GT(inputs, 0) << name;
    }
}

}  // namespace trevandix::testing
