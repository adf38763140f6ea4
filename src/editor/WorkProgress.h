#pragma once

#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

#include "editor/EditorContext.h"
#include "editor/MainWindow.h"
#include "table/ChangeSet.h"

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

/// Work on many changes, with the hourglass. The window answers meanwhile, and past half a second shows
/// the progress.
class ChangeWork {
public:
    /// `text` has static storage.
    ChangeWork(const Platform& platform, std::string_view text)
        : window_(platform.window),
          text_(text),
          hourglass_(platform.pointer, Pointer::Hourglass),
          progress_(platform.window, kQuiet) {}
    ~ChangeWork() {
        if (shown_) window_.hideImportPanel();
    }
    ChangeWork(const ChangeWork&) = delete;
    ChangeWork& operator=(const ChangeWork&) = delete;

    TableProgress progress() {
        return [this](std::size_t done, std::size_t all) {
            if (!progress_.due()) return;
            const bool isLong = std::chrono::steady_clock::now() - begin_ >= kUnseen;
            if (isLong && !std::exchange(shown_, true)) window_.showImportPanel(text_);
            progress_.show(static_cast<int>(std::min(done, all) * kHighest / std::max<std::size_t>(all, 1)));
        };
    }

private:
    static constexpr std::chrono::milliseconds kQuiet{100};
    static constexpr std::chrono::milliseconds kUnseen{500};
    static constexpr std::size_t kHighest = 99;

    MainWindow& window_;
    std::string_view text_;
    PointerScope hourglass_;
    WorkProgress progress_;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    bool shown_ = false;
};

}  // namespace trevandix
