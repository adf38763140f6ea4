#include "editor/XmlFiles.h"

#include <algorithm>

namespace trevandix {

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
