#include "editor/EditorContext.h"

#include "platform/RuntimeError.h"

namespace trevandix {

void EditorContext::enable(Situation situation) const {
    const bool always = situation == Situation::Start || situation == Situation::Busy;
    if (!always && !state().configurationOpen) return;
    guarded("EnMenuButt", [&] { EnMenuButt(platform.commands, enablingRow(situation)); });
}

bool EditorContext::guarded(std::string_view procedure, const std::function<void()>& body) const {
    return reportErrors(platform.messages, procedure, body);
}

void EditorContext::InitObjects() const {
    news.clearNotice();
    platform.window.setTreeVisible(false);
    configuration.clearTree();
    list.setVisible(false);
    list.clear();
    news.update();
}

}  // namespace trevandix
