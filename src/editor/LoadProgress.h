#pragma once

#include <chrono>

#include "editor/MainWindow.h"

namespace trevandix {

/// Counts the items of a load on `pnlPercent` and keeps the window alive meanwhile: some thirty times a
/// second, and less often where the window is slow, so that this never costs more than a twentieth of the
/// load.
class LoadProgress {
public:
    explicit LoadProgress(MainWindow& window);
    void itemRead();
    int percent() const { return percent_; }

private:
    using Clock = std::chrono::steady_clock;
    void show();

    MainWindow& window_;
    int percent_ = 0;
    unsigned untilClockIsRead_;
    Clock::time_point next_;
};

}  // namespace trevandix
