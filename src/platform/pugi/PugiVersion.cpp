#include "platform/pugi/PugiVersion.h"

#include <pugixml.hpp>

namespace trevandix {

// 1130 and 1135 stand for 1.13 and 1.13.5.
std::string pugiVersion() {
    constexpr int kVersion = PUGIXML_VERSION;
    std::string text =
        "pugixml " + std::to_string(kVersion / 1000) + "." + std::to_string(kVersion / 10 % 100);
    if (kVersion % 10 != 0) text += "." + std::to_string(kVersion % 10);
    return text;
}

}  // namespace trevandix
