#include "editor/XmlFiles.h"

#include "editor/WorkProgress.h"

namespace trevandix {

namespace {

constexpr int kWrap = 100;               // where the percentage starts over
constexpr unsigned kItemsPerClock = 32;  // reading the clock for each item would take too long

/// Tells the progress of a load, as no end is known: the percentage counts items.
class LoadProgress {
public:
    explicit LoadProgress(MainWindow& window) : progress_(window, &MainWindow::processEvents) {}

    void itemRead() {
        percent_ = (percent_ + 1) % kWrap;
        if (--untilClockIsRead_ > 0) return;
        untilClockIsRead_ = kItemsPerClock;
        if (progress_.due()) progress_.show(percent_);
    }

private:
    WorkProgress progress_;
    int percent_ = 0;
    unsigned untilClockIsRead_ = kItemsPerClock;
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
