#pragma once

#include <array>
#include <string>

#include "editor/MainWindow.h"
#include "model/Configuration.h"
#include "platform/ListView.h"
#include "platform/Services.h"

namespace trevandix {

/// The texts of the status bar: what is selected, how many units, branches and items there are, whether they
/// are saved, what is wrong with them, and what the last command did.
class StatusNews {
public:
    StatusNews(MainWindow& window, const Configuration& configuration, const ListView& list)
        : window_(window), configuration_(configuration), list_(list) {}

    /// Updates the fields. Cheap enough to be called after every event.
    void update();
    /// Sets what a command did, or why it did nothing. `update` shows it instead of the notice, until the
    /// next command or click.
    void tell(std::string feedback) { feedback_ = std::move(feedback); }
    /// Sets the notice after saving: the first text that keeps other programs from reading the file, if there
    /// is one, and what became of the path's publication. It stays until the next save or another
    /// configuration.
    void tellSaved(Publication publication, const Registry& registry);
    void clearNotice();
    /// True when the configuration was saved, but not published.
    bool unpublished() const { return unpublished_; }
    /// True while the status bar says so.
    bool showsUnpublished() const;
    /// Sets the outcome of the checks. It stays until the next one or another configuration.
    void tellProblems(std::string problems) { problems_ = std::move(problems); }
    /// Empty before the open configuration has been checked.
    const std::string& problems() const { return problems_; }

private:
    std::string selection() const;
    std::string counts() const;
    void show(StatusField field, const std::string& text);

    MainWindow& window_;
    const Configuration& configuration_;
    const ListView& list_;
    std::string notice_;
    bool unpublished_ = false;
    bool capitalsTold_ = false;  ///< the notice about capitals is given only once
    std::string feedback_;
    std::string problems_;
    std::array<std::string, 5> shown_;
};

}  // namespace trevandix
