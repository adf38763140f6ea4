#pragma once

#include <optional>
#include <string_view>

#include "platform/Form.h"

namespace trevandix {

/// Asks for the interface kind of a new configuration. Nothing when the user closes the dialog by its title
/// bar.
std::optional<std::string_view> showFrmSelect(Forms& forms);

}  // namespace trevandix
