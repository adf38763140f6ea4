#include "editor/StatusNews.h"

namespace trevandix {

namespace {

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return (std::to_string(count) += ' ').append(count == 1 ? one : many);
}

}  // namespace

void StatusNews::update() {
    const Configuration& configuration = context_.configuration;
    const EditingState& state = configuration.state;
    if (!state.configurationOpen || configuration.tree.root() == nullptr) {
        for (const StatusField field : {StatusField::Selection, StatusField::Counts, StatusField::Saved})
            show(field, "");
        return;
    }
    const TreeNode* node = configuration.tree.selected();
    const bool keyed = node != nullptr && !node->key().empty();
    show(StatusField::Selection, keyed ? node->key().str() : state.filePath);
    show(StatusField::Counts, counted(configuration.units.size(), "unit", "units") + ", " +
                                  counted(configuration.branches.size(), "branch", "branches") + ", " +
                                  counted(configuration.items.size(), "item", "items"));
    show(StatusField::Saved, state.saved ? "Saved" : "Unsaved changes");
}

void StatusNews::show(StatusField field, std::string text) {
    std::string& before = shown_[static_cast<std::size_t>(field)];
    if (before == text) return;
    before = std::move(text);
    context_.platform.window.setStatus(field, before);
}

std::string publicationText(bool published, std::string_view filePath) {
    if (published) return "Published to the server: " + std::string(filePath);
    return "Saved, but not published: the system refused. Run the editor as administrator to publish.";
}

}  // namespace trevandix
