#pragma once

#include <optional>
#include <string>
#include <vector>

namespace trevandix {

/// If the program was started to publish two values (see `kPublishValues`), publishes them and returns the
/// exit code: 0, or 1 when the system refuses. Nothing for all other arguments, those with a wrong value
/// among them. `arguments` are UTF-8 and do not include the program's own name.
std::optional<int> publishAsChild(const std::vector<std::string>& arguments);

}  // namespace trevandix
