#pragma once

#include <chrono>
#include <optional>

#include "editor/FileCommands.h"
#include "editor/RecoveryFiles.h"
#include "editor/RecoveryWriter.h"

namespace trevandix {

/// Keeps unsaved work on the disk while the user pauses, so that a crash costs less than a minute of it.
/// Never says anything while it works: where it cannot write, there is no recovery.
class Recovery {
public:
    using Time = std::chrono::steady_clock::time_point;

    Recovery(const EditorContext& context, FileCommands& file);

    /// Asks about the work of earlier runs that ended without tidying up. True when the user took one back.
    bool offer();
    /// To be called now and then. Writes a slice when it is time to. Returns when to call again.
    std::chrono::milliseconds idle(Time now, Time lastInput);
    /// Writes all unsaved work now and leaves it to the next start.
    void keepForNextStart();
    /// The program ends as it should: nothing is left behind.
    void end();

private:
    bool due(Time now, Time lastInput);
    void begin();
    bool writeSlice(std::chrono::milliseconds budget);
    void forget();

    const EditorContext& context_;
    FileCommands& file_;
    RecoveryFiles files_;
    std::optional<RecoveryWriter> writer_;
    std::optional<std::uint64_t> kept_;  ///< `Configuration::edits` of the work on the disk
    std::optional<Time> unkeptSince_;    ///< when work that is not on the disk was first seen
    std::optional<Time> nextWrite_;
};

}  // namespace trevandix
