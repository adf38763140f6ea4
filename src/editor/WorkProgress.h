#pragma once

#include <algorithm>
#include <chrono>

#include "editor/MainWindow.h"

namespace trevandix {

/// Shows the progress of long work on `pnlPercent` and lets the window handle events: at most thirty times a
/// second, and never for more than a twentieth of the time.
class WorkProgress {
public:
    static constexpr std::chrono::milliseconds kInterval{33};

    /// Does nothing during the time `quiet`.
    explicit WorkProgress(MainWindow& window, std::chrono::milliseconds quiet = kInterval)
        : window_(window), next_(Clock::now() + quiet) {}

    bool due() const { return Clock::now() >= next_; }
    /// `percent` is from 0 to 99.
    void show(int percent) {
        constexpr int kWorkPerPump = 20;  // as a multiple of the time for the window
        const auto start = Clock::now();
        window_.setPercent(percent);
        window_.processEvents();
        const auto end = Clock::now();
        next_ = end + std::max<Clock::duration>(kInterval, (end - start) * kWorkPerPump);
    }

private:
    using Clock = std::chrono::steady_clock;

    MainWindow& window_;
    Clock::time_point next_;
};

}  // namespace trevandix
