#include "editor/LoadProgress.h"

#include <algorithm>

namespace trevandix {

namespace {
constexpr int kWrap = 100;
constexpr unsigned kItemsPerClock = 32;
constexpr std::chrono::milliseconds kInterval{33};
constexpr int kLoadPerPump = 20;
}  // namespace

LoadProgress::LoadProgress(MainWindow& window)
    : window_(window), untilClockIsRead_(kItemsPerClock), next_(Clock::now() + kInterval) {}

void LoadProgress::itemRead() {
    percent_ = (percent_ + 1) % kWrap;
    if (--untilClockIsRead_ > 0) return;
    untilClockIsRead_ = kItemsPerClock;
    if (Clock::now() >= next_) show();
}

void LoadProgress::show() {
    const auto start = Clock::now();
    window_.setPercent(percent_);
    window_.processEvents();
    const auto end = Clock::now();
    next_ = end + std::max<Clock::duration>(kInterval, (end - start) * kLoadPerPump);
}

}  // namespace trevandix
