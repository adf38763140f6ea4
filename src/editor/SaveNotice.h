#pragma once

#include <string>

#include "model/Configuration.h"

namespace trevandix {

/// What the status bar says of a file just saved: the first text in it that keeps other programs from reading
/// it, and whether the server has been told of it. `capitalsTold`: the note that branch names come back in
/// capitals has been given; it is given once, for the first file that it concerns.
std::string saveNotice(const Configuration& configuration, bool published, bool& capitalsTold);

}  // namespace trevandix
