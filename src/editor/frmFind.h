#pragma once

#include <cstdint>
#include <memory>

#include "editor/EditorContext.h"

namespace trevandix {

/// The modeless find window: moves the tree's selection to nodes whose text begins with what was typed, in
/// the order in which the nodes were added. The list keeps what it shows.
class frmFind {
public:
    explicit frmFind(const EditorContext& context) : context_(context) {}

    /// Shows the window, loading it first if needed.
    void mnuFind_Click();
    /// Find Next from the main window's keyboard, while the find window is open.
    void findNextByKey();
    void unload();

private:
    void Form_Load();
    void cmdFind_Click();
    void cmdNext_Click();
    void selectMatch(std::size_t passed);

    const EditorContext& context_;
    std::unique_ptr<Form> form_;
    /// A closed window lives on unseen until it is opened again: it may be closed from one of its own
    /// handlers.
    bool open_ = false;
    /// Matches that Find Next has passed since the window was opened. Neither Find nor another text resets
    /// it.
    std::int16_t matchCount_ = 0;
};

}  // namespace trevandix
