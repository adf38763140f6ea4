#include "editor/RecoveryWriter.h"

namespace trevandix {

namespace {
// Between two looks at the clock: a fraction of a millisecond.
constexpr std::size_t kNodesPerClock = 256;
}  // namespace

RecoveryWriter::RecoveryWriter(const Configuration& configuration, const std::string& filePath)
    : configuration_(configuration),
      filePath_(filePath),
      revision_(configuration.revision()),
      changes_(configuration.changes()),
      printer_(configuration, ConfigurationPrinter::Gaps::Skip),
      file_(filePath) {}

RecoveryWriter::Outcome RecoveryWriter::step(std::chrono::milliseconds budget) {
    if (configuration_.changes() != changes_) return Outcome::Outdated;
    const auto end = std::chrono::steady_clock::now() + budget;
    do {
        if (printer_.printSome(file_, kNodesPerClock)) continue;
        file_.close();  // not synced: it is there for a crash of the program, not of the machine
        return Outcome::Done;
    } while (std::chrono::steady_clock::now() < end);
    return Outcome::More;
}

}  // namespace trevandix
