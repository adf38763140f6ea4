#include "editor/SaveNotice.h"

#include "xmlfile/AmbiguousTexts.h"

namespace trevandix {

std::string ambiguityText(const Configuration& configuration) {
    constexpr std::size_t kNamed = 3;
    const std::vector<std::string> places = ambiguousTexts(configuration);
    if (places.empty()) return {};
    std::string text = "May read differently when opened: ";
    for (std::size_t i = 0; i < places.size() && i < kNamed; ++i) {
        if (i > 0) text += ", ";
        text += places[i];
    }
    if (places.size() > kNamed) text += " and " + std::to_string(places.size() - kNamed) + " more";
    return text + ". ";
}

}  // namespace trevandix
