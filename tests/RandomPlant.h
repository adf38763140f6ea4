#pragma once

#include "model/Configuration.h"

namespace trevandix::testing {

/// Fills a configuration that has been begun with units, branches and items that a file can hold. In every
/// other one, a few names and comments, a type or a drag make it doubtful whether it comes back.
void plantAtRandom(Configuration& configuration, unsigned seed);

}  // namespace trevandix::testing
