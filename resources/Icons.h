#pragma once

#include <string_view>

namespace trevandix {

/// The SVG text of a drawing of `resources/icons`, by its file name without ending; empty when there is none.
std::string_view iconSvg(std::string_view name);

}  // namespace trevandix
