#pragma once

#include <chrono>
#include <optional>

#include "editor/FileCommands.h"
#include "editor/RecoveryFiles.h"

namespace trevandix {

/// Keeps unsaved work on the disk: while the user pauses, so that a crash costs less than a minute of it, and
/// when a configuration is left with changes that nobody was asked about. In a pause it never says anything:
/// where it cannot write, there is no recovery.
class Recovery {
public:
    using Time = std::chrono::steady_clock::time_point;

    Recovery(const EditorContext& context, FileCommands& file);

    /// Asks about the work of earlier runs, one after the other. True when the user took one back; those
    /// behind it wait for the next start. What cannot be read stays on the disk, is named, and is not
    /// offered again.
    bool offer();
    /// To be called every second. Writes when it is time to.
    void idle(Time now, Time lastInput);
    /// The configuration is about to be left: writes its unsaved work now, for the next start. The user is
    /// told when that fails.
    void keepForNextStart();
    /// The program ends as it should: nothing is left behind.
    void end();

private:
    bool due(Time now, Time lastInput);
    void write(const std::string& leftOn);
    void forget();
    void putAside(RecoveryFiles::Abandoned work);

    const EditorContext& context_;
    FileCommands& file_;
    RecoveryFiles files_;
    std::optional<std::uint64_t> kept_;  ///< `Configuration::revision` of the work on the disk
    std::optional<Time> unkeptSince_;    ///< when work that is not on the disk was first seen
    std::optional<Time> nextWrite_;
};

}  // namespace trevandix
