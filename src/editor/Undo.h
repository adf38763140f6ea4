#pragma once

#include <vector>

#include "editor/EditorContext.h"
#include "editor/MainWindow.h"
#include "editor/TreeAndList.h"

namespace trevandix {

/// Undo and Redo: turn the last step of the open configuration back, or forth again, and show where it was.
class Undo {
public:
    Undo(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    void mnuUndo_Click();
    void mnuRedo_Click();
    /// With the names of the steps, as "Undo Delete 3 items".
    std::vector<ContextEntry> contextEntries() const;

private:
    using Turn = void (Configuration::*)();
    void show(Turn turn, std::string_view step, std::string_view done, std::string_view hint);

    const EditorContext& context_;
    TreeAndList& views_;
};

}  // namespace trevandix
