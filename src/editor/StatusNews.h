#pragma once

#include <array>
#include <string>

#include "editor/MainWindow.h"
#include "model/Configuration.h"
#include "platform/ListView.h"

namespace trevandix {

/// The status bar: what is selected, how much there is, whether it is saved, what the last command did. Quiet
/// news, never a box.
class StatusNews {
public:
    StatusNews(MainWindow& window, const Configuration& configuration, const ListView& list)
        : window_(window), configuration_(configuration), list_(list) {}

    /// Brings the fields up to date; cheap enough to be called after every event.
    void update();
    /// What a command did, or why it did nothing; shown in place of the notice until the next command or
    /// click.
    void tell(std::string feedback) { feedback_ = std::move(feedback); }
    /// The file has been saved: says the first text in it that keeps other programs from reading it, and
    /// whether the server has been told of it. Stays until the next save, or another configuration.
    void tellSaved(bool published);
    void clearNotice() { notice_.clear(); }

private:
    std::string selection() const;
    std::string counts() const;
    void show(StatusField field, const std::string& text);

    MainWindow& window_;
    const Configuration& configuration_;
    const ListView& list_;
    std::string notice_;
    bool capitalsTold_ = false;  ///< said once, for the first file with small letters in a branch's name
    std::string feedback_;
    std::array<std::string, 4> shown_;
};

/// A number with its noun: "1 item", "3 items".
std::string counted(std::size_t count, std::string_view one, std::string_view many);

}  // namespace trevandix
