#include "editor/XmlFiles.h"

#include <algorithm>
#include <chrono>

namespace trevandix {

namespace {

constexpr int kWrap = 100;               // where the percentage starts over
constexpr unsigned kItemsPerClock = 32;  // reading the clock for each item would take too long
constexpr std::chrono::milliseconds kInterval{33};
constexpr int kLoadPerPump = 20;  // time for loading, as a multiple of the time for the window

/// Shows the progress of a load on `pnlPercent` and lets the window handle events: at most thirty times a
/// second, and never for more than a twentieth of the time.
class LoadProgress {
public:
    explicit LoadProgress(MainWindow& window) : window_(window) {}

    void itemRead() {
        percent_ = (percent_ + 1) % kWrap;
        if (--untilClockIsRead_ > 0) return;
        untilClockIsRead_ = kItemsPerClock;
        if (Clock::now() >= next_) show();
    }

private:
    using Clock = std::chrono::steady_clock;

    void show() {
        const auto start = Clock::now();
        window_.setPercent(percent_);
        window_.processEvents();
        const auto end = Clock::now();
        next_ = end + std::max<Clock::duration>(kInterval, (end - start) * kLoadPerPump);
    }

    MainWindow& window_;
    int percent_ = 0;
    unsigned untilClockIsRead_ = kItemsPerClock;
    Clock::time_point next_ = Clock::now() + kInterval;
};

}  // namespace

bool ImportXML(Configuration& configuration, const std::string& filePath, Origin origin,
               const Platform& platform) {
    const PointerScope hourglass(platform.pointer, Pointer::Hourglass);
    LoadProgress progress(platform.window);
    ConfigurationReader reader(configuration, platform.xmlParser, [&] { progress.itemRead(); });
    bool valid = false;
    const bool finished =
        reportErrors(platform.messages, "ImportXML", [&] { valid = reader.read(filePath, origin); });
    if (finished && !valid) platform.messages.show(kNoConfiguration);
    return valid;
}

bool CreateXML(const Configuration& configuration, const std::string& filePath, SafeFile& file,
               const Platform& platform) {
    const PointerScope hourglass(platform.pointer, Pointer::Hourglass);
    return reportErrors(platform.messages, "CreateXML",
                        [&] { ConfigurationWriter(configuration).write(filePath, file); });
}

}  // namespace trevandix
