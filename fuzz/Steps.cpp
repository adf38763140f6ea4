// Random commands until there have been as many as told: for a night, where the fuzzer looks for new ways
// through the program and this one goes the same ways again and again. The sequence that found a fault, or
// ended the program, is left in a file.
//     fuzz-Steps [STEPS]    1,000,000 unless told
//     fuzz-Steps FILE       that sequence once more
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <random>
#include <string>

#include "FakePlatform.h"
#include "Targets.h"

namespace {

constexpr std::size_t kLongest = 2000;  // steps of one sequence
const std::string kFile = "steps.bin";

std::string randomBytes(unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(40 * kLongest, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    return bytes;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string argument = count > 1 ? arguments[1] : "1000000";
    const bool replay = std::filesystem::exists(argument);
    const unsigned long long wanted = replay ? 1 : std::strtoull(argument.c_str(), nullptr, 10);
    std::random_device seeds;
    unsigned long long steps = 0;
    int sequences = 0;
    while (steps < wanted) {
        const std::string bytes = replay ? trevandix::testing::readFile(argument) : randomBytes(seeds());
        if (!replay) trevandix::testing::writeFile(kFile, bytes);
        try {
            steps += trevandix::fuzz::Commands(bytes, {.mostSteps = kLongest});
        } catch (const std::exception& fault) {
            std::printf("after %llu steps: %s; again: fuzz-Steps %s\n", steps, fault.what(),
                        replay ? argument.c_str() : kFile.c_str());
            return 1;
        }
        ++sequences;
    }
    if (!replay) std::filesystem::remove(kFile);
    std::printf("%llu steps in %d sequences: tree and collections agreed after each\n", steps, sequences);
    return 0;
}
