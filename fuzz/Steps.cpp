// Compares random users with the reference for a given number of steps, for example overnight. Prints a
// difference and the few steps that cause it.
//     fuzz-Steps [STEPS [SEED]]    default: 1,000,000 steps in walks of 2,000, from seed 1
#include <cstdio>
#include <cstdlib>

#include "RandomSteps.h"

int main(int count, char** arguments) {
    constexpr std::size_t kLongest = 2000;
    const unsigned long long wanted = count > 1 ? std::strtoull(arguments[1], nullptr, 10) : 1'000'000;
    unsigned seed = count > 2 ? static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10)) : 1;
    unsigned long long steps = 0;
    for (; steps < wanted; ++seed) {
        using namespace trevandix::testing;
        const Walk walked = seed % 3 == 0 ? bulkWalk(seed, kLongest) : walk(seed, kLongest, seed % 4 == 0);
        steps += walked.steps.size();
        if (walked.difference.empty()) continue;
        std::printf("seed %u, step %zu:\n%s\n", seed, walked.steps.size(), walked.difference.c_str());
        std::fflush(stdout);  // reducing the steps may take a while
        std::printf("%s\n", walked.told().c_str());
        return 1;
    }
    std::printf("%llu steps: editor and reference agreed after each\n", steps);
    return 0;
}
