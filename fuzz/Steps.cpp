// Random commands until there have been as many as told: for a night, where the fuzzer looks for new ways
// through the program and this one goes the same ways again and again. Ends with the sequence that found a
// fault.
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <random>
#include <string>

#include "FakePlatform.h"
#include "Targets.h"

constexpr std::size_t kLongest = 2000;  // steps of one sequence

int main(int count, char** arguments) {
    const unsigned long long wanted = count > 1 ? std::strtoull(arguments[1], nullptr, 10) : 1'000'000;
    std::random_device seeds;
    unsigned long long steps = 0;
    int sequences = 0;
    while (steps < wanted) {
        const unsigned seed = seeds();
        std::mt19937 random(seed);
        std::string bytes(40 * kLongest, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        try {
            steps += trevandix::fuzz::Commands(bytes, kLongest);
        } catch (const std::exception& fault) {
            const std::string path = "steps-" + std::to_string(seed) + ".bin";
            trevandix::testing::writeFile(path, bytes);
            std::printf("after %llu steps: %s; the sequence: %s\n", steps, fault.what(), path.c_str());
            return 1;
        }
        ++sequences;
    }
    std::printf("%llu steps in %d sequences: tree and collections agreed after each\n", steps, sequences);
    return 0;
}
