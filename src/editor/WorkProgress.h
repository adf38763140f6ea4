#pragma once

#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

#include "editor/EditorContext.h"
#include "editor/MainWindow.h"
#include "table/ChangeSet.h"

namespace trevandix {

/// Shows the progress of long work on `pnlPercent` and lets the window handle events. Between two times lie
/// twenty times as long as the window took, but at least 33 ms and at most 50 ms.
class WorkProgress {
public:
    /// Shorter work does not let the window handle events.
    static constexpr std::chrono::milliseconds kFirst{10};

    /// `handle` is `processEvents` or `redraw`.
    WorkProgress(MainWindow& window, void (MainWindow::*handle)()) : window_(window), handle_(handle) {}

    bool due() const { return Clock::now() >= next_; }
    /// `percent` is from 0 to 99.
    void show(int percent) {
        constexpr int kWorkPerPump = 20;  // as a multiple of the time for the window
        const auto start = Clock::now();
        window_.setPercent(percent);
        (window_.*handle_)();
        const auto end = Clock::now();
        next_ = end + std::clamp<Clock::duration>((end - start) * kWorkPerPump, kShortest, kLongest);
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kShortest{33};
    static constexpr std::chrono::milliseconds kLongest{50};

    MainWindow& window_;
    void (MainWindow::*handle_)();
    Clock::time_point next_ = Clock::now() + kFirst;
};

/// Work on many changes, with the hourglass. The window is redrawn during it and at its end, and past half a
/// second shows the progress; input waits.
class ChangeWork {
public:
    /// `text` has static storage.
    ChangeWork(const Platform& platform, std::string_view text)
        : window_(platform.window),
          text_(text),
          hourglass_(platform.pointer, Pointer::Hourglass),
          progress_(platform.window, &MainWindow::redraw) {}
    ~ChangeWork() {
        if (shown_) window_.hideImportPanel();
        if (std::chrono::steady_clock::now() - begin_ >= WorkProgress::kFirst) window_.redraw();
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
