#include "wx/WxImageNames.h"

#include <algorithm>

#include "Icons.h"
#include "wx/WxIcons.h"

namespace trevandix {

int WxImageNames::indexOf(std::string_view name) {
    if (name.empty()) return -1;
    const auto place = std::ranges::find(names_, name);
    if (place != names_.end()) return static_cast<int>(place - names_.begin());
    names_.emplace_back(name);
    const std::string inViews = "tree-" + std::string(name);
    bundles_.push_back(iconBundle(iconSvg(inViews).empty() ? name : inViews, size_));
    return static_cast<int>(names_.size()) - 1;
}

}  // namespace trevandix
