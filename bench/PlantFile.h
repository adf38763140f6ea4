#pragma once

#include <cstddef>
#include <string>

namespace trevandix::bench {

/// The path of a configuration file with that many items, about 250 bytes each: 100 items per branch, ten
/// branches per unit, nothing wrong with it. The file is made once, in the system's temporary folder, and
/// deleted when the program ends.
const std::string& plantFile(std::size_t items);

/// The file that the benchmarks write.
std::string outputFile();

}  // namespace trevandix::bench
