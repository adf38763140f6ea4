#pragma once

#include <chrono>
#include <string>

#include "editor/EditorContext.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix {

// The reader and the writer with what their user sees of them: the hourglass, the progress of a load, and a
// message when they fail.

/// Reads the file into the configuration, as `ConfigurationReader` does. False when the file is no
/// configuration or reading failed; the user has been told then.
bool ImportXML(Configuration& configuration, const std::string& filePath, Origin origin,
               const Platform& platform);
/// False when writing failed; the user has been told then.
bool CreateXML(const Configuration& configuration, const std::string& filePath, SafeFile& file,
               const Platform& platform);

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
