#pragma once

#include <string>

#include "model/Configuration.h"

namespace trevandix {

/// What the status bar says, in front of what it says otherwise, of texts in a file just saved that may come
/// back as others; empty when there are none.
std::string ambiguityText(const Configuration& configuration);

}  // namespace trevandix
