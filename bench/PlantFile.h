#pragma once

#include <cstddef>
#include <string>

namespace trevandix::bench {

/// The path of a configuration file with that many items (about 250 bytes each): one branch for 100 items,
/// ten branches a unit. Made once and kept in the system's folder for temporary files until the program ends.
const std::string& plantFile(std::size_t items);

/// Where benchmarks write.
std::string outputFile();

}  // namespace trevandix::bench
