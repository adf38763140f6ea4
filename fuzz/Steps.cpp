// Random users until there have been as many steps as told, each compared with the reference:
// for a night, where the tests take seconds. A difference is printed with the steps that are needed for it.
//     fuzz-Steps [STEPS [SEED]]    1,000,000 steps unless told, walks of 2,000 from the seed on, 1 unless
//     told
#include <cstdio>
#include <cstdlib>

#include "RandomSteps.h"

int main(int count, char** arguments) {
    constexpr std::size_t kLongest = 2000;
    const unsigned long long wanted = count > 1 ? std::strtoull(arguments[1], nullptr, 10) : 1'000'000;
    unsigned seed = count > 2 ? static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10)) : 1;
    unsigned long long steps = 0;
    for (; steps < wanted; ++seed) {
        const auto walked = trevandix::testing::walk(seed, kLongest, seed % 4 == 0);
        steps += walked.steps.size();
        if (walked.difference.empty()) continue;
        std::printf("seed %u, step %zu:\n%s\n", seed, walked.steps.size(), walked.difference.c_str());
        std::fflush(stdout);  // finding the steps that are needed may take a while
        std::printf("%s\n", walked.told().c_str());
        return 1;
    }
    std::printf("%llu steps: editor and reference agreed after each\n", steps);
    return 0;
}
