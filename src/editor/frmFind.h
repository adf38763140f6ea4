#pragma once

#include <cstdint>
#include <memory>

#include "editor/EditorContext.h"

namespace trevandix {

/// The modeless find window. Selects nodes of the tree whose text begins with what was typed, ignoring case,
/// in the order in which they were added. The list does not change.
class frmFind {
public:
    explicit frmFind(const EditorContext& context) : context_(context) {}

    /// Shows the window, loading it first if needed.
    void mnuFind_Click();
    /// Find Next by the main window's shortcut. Does nothing unless the find window is open.
    void findNextByKey();
    /// Closes and deletes the window.
    void unload();

private:
    void Form_Load();
    void cmdFind_Click();
    void cmdNext_Click();
    void selectMatch(std::size_t passed);

    const EditorContext& context_;
    std::unique_ptr<Form> form_;
    /// A closed window is not deleted before it is opened again, because one of its own handlers may close
    /// it.
    bool open_ = false;
    /// Number of matches that Find Next has skipped since the window was opened. Neither Find nor another
    /// text resets it.
    std::int16_t matchCount_ = 0;
};

}  // namespace trevandix
