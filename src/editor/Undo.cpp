#include "editor/Undo.h"

#include <functional>
#include <string>
#include <vector>

namespace trevandix {

void Undo::mnuUndo_Click() {
    context_.guarded("mnuUndo_Click", [&] {
        const std::string_view step = context_.configuration.undoName();
        if (step.empty()) return context_.news.tell("Nothing to undo");
        show(&Configuration::undo, step, "Undone: ", ". Ctrl+Y redoes it");
    });
}

void Undo::mnuRedo_Click() {
    context_.guarded("mnuRedo_Click", [&] {
        const std::string_view step = context_.configuration.redoName();
        if (step.empty()) return context_.news.tell("Nothing to redo");
        show(&Configuration::redo, step, "Redone: ", ". Ctrl+Z undoes it");
    });
}

void Undo::show(Turn turn, std::string_view step, std::string_view done, std::string_view hint) {
    const PointerScope hourglass(context_.platform.pointer, Pointer::Hourglass);
    std::string news = std::string(done).append(step).append(hint);
    {
        const StructureTree::Batch batch(context_.tree());
        const std::vector<const TreeNode*> rows = views_.nodesOfRows();
        std::invoke(turn, context_.configuration);
        context_.platform.window.redraw();
        views_.showAgain(rows);
        context_.tree().ensureVisible(*context_.tree().selected());
    }
    context_.news.tell(std::move(news));
}

std::vector<ContextEntry> Undo::contextEntries() const {
    const auto entry = [](std::string_view command, std::string_view verb, std::string_view step) {
        return ContextEntry{command, std::string(verb).append(step.empty() ? "" : " ").append(step),
                            !step.empty()};
    };
    return {entry("mnuUndo", "Undo", context_.configuration.undoName()),
            entry("mnuRedo", "Redo", context_.configuration.redoName())};
}

}  // namespace trevandix
