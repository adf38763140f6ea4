#include "editor/SaveNotice.h"

#include <algorithm>

#include "platform/Text.h"
#include "xmlfile/Unreadable.h"

namespace trevandix {

namespace {

bool hasSmallLetters(const Configuration& configuration) {
    return std::ranges::any_of(configuration.branches, [](const auto& entry) {
        const std::string& name = entry.second->sName();
        return name != upperCased(name);
    });
}

}  // namespace

std::string saveNotice(const Configuration& configuration, bool published, bool& capitalsTold) {
    std::string text = whatMakesUnreadable(configuration);
    if (!text.empty()) text = "Other programs cannot read this file: " + text + ". ";
    if (!capitalsTold && hasSmallLetters(configuration)) {
        capitalsTold = true;
        text += "Branch names come back in capitals when the file is opened. ";
    }
    if (published) return text + "Published to the server: " + configuration.state.filePath;
    return text + "Saved, but not published: the system refused. Run the editor as administrator to publish.";
}

}  // namespace trevandix
