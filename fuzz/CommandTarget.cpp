#include <stdexcept>

#include "RandomSteps.h"
#include "Targets.h"

namespace trevandix::fuzz {

void Commands(std::string_view bytes) {
    constexpr std::size_t kBytesOfAStep = 4;  // approximately; the last steps use 0 for missing choices
    const auto next = [&](unsigned limit) {
        if (bytes.empty()) return 0U;
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        return byte % limit;
    };
    const testing::Walk walked = testing::walk(next, bytes.size() / kBytesOfAStep);
    if (!walked.difference.empty()) throw std::logic_error(walked.told());
}

}  // namespace trevandix::fuzz
