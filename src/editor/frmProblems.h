#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "editor/EditorContext.h"
#include "editor/ProblemRows.h"
#include "editor/TreeAndList.h"

namespace trevandix {

/// What the checks find in the open configuration: counted in the status bar, listed in the modeless window
/// "Problems", and selected one after the other. Checks when the user pauses, and before anything is done
/// with findings of an earlier state.
class frmProblems {
public:
    frmProblems(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    /// Shows the window, loading it first if needed.
    void mnuProblems_Click();
    /// Selects the object of the next finding, as a click in the tree does; behind the last comes the first.
    /// The first time since the configuration was opened, shows the window instead.
    void nextProblem();
    /// The same for the finding before; never shows the window.
    void previousProblem();

    /// Checks unless this has been done since the last edit. Ends without a result when `inputWaits`.
    void paused(const std::function<bool()>& inputWaits);
    /// To be called after each event: empties the window when the configuration is no longer the same.
    void follow();
    /// Closes and deletes the window.
    void unload();

private:
    void Form_Load();
    void update(const std::function<bool()>& interrupted);
    void bringUpToDate();
    void readMarks();
    std::size_t shownRow() const;
    void showRows();
    void showText();
    void show(std::size_t row);
    void cmdSelect_Click();
    void cmdCopy_Click();
    void copySelected();
    void copy(const std::string& text, std::size_t rows) const;
    void sortBy(std::size_t column);

    const EditorContext& context_;
    TreeAndList& views_;
    ProblemRows rows_;
    ProblemRows::Marks marks_;
    std::optional<std::uint64_t> checked_;  ///< `Configuration::revision` of the findings
    std::unique_ptr<Form> form_;            ///< kept when it is closed, with its size and place
    bool open_ = false;
    bool wasOpen_ = false;  ///< since the configuration was opened
};

/// "2 errors, 5 warnings", or "No problems".
std::string problemCounts(const FindingCounts& counts);

}  // namespace trevandix
