// The entry point of each fuzzer. TREVANDIX_TARGET is the function to run.
#include <cstddef>
#include <cstdint>

#include "Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    trevandix::fuzz::TREVANDIX_TARGET({reinterpret_cast<const char*>(data), size});
    return 0;
}
