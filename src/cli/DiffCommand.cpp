#include "cli/Commands.h"
#include "cli/Differences.h"
#include "cli/Files.h"

namespace trevandix {

ExitCode DiffCommand::run(const Console& console, XmlParser& parser) const {
    const Configuration& old = readFile(parser, before);
    const Configuration& now = readFile(parser, after);
    ExitCode code = kNothingFound;
    compare(old, now, [&](const Difference& difference) {
        code = kFound;
        print(console, difference);
    });
    return code;
}

}  // namespace trevandix
