#include "editor/SaveNotice.h"

#include <algorithm>

#include "platform/Text.h"
#include "xmlfile/AmbiguousTexts.h"

namespace trevandix {

namespace {

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

bool hasSmallLetters(const Configuration& configuration) {
    return std::ranges::any_of(configuration.branches, [](const auto& entry) {
        const std::string& name = entry.second->sName();
        return name != upperCased(name);
    });
}

}  // namespace

std::string saveNotice(const Configuration& configuration, bool published, bool& capitalsTold) {
    std::string text = ambiguityText(configuration);
    if (!capitalsTold && hasSmallLetters(configuration)) {
        capitalsTold = true;
        text += "Branch names come back in capitals when the file is opened. ";
    }
    if (published) return text + "Published to the server: " + configuration.state.filePath;
    return text + "Saved, but not published: the system refused. Run the editor as administrator to publish.";
}

}  // namespace trevandix
