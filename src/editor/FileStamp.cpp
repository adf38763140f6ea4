#include "editor/FileStamp.h"

#include <array>
#include <chrono>
#include <ctime>

#include "platform/FileAccess.h"

namespace trevandix {

std::optional<FileStamp> FileStamp::of(const std::string& filePath) {
    std::error_code error;
    FileStamp stamp;
    stamp.size = std::filesystem::file_size(fromUtf8(filePath), error);
    if (error) return std::nullopt;
    stamp.time = std::filesystem::last_write_time(fromUtf8(filePath), error);
    return error ? std::nullopt : std::optional(stamp);
}

std::string FileStamp::localTime() const {
    const auto point =
        std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::file_clock::to_sys(time));
    const std::time_t seconds = point.time_since_epoch().count();
    const std::tm* parts = std::localtime(&seconds);  // everything runs on one thread
    std::array<char, 32> text{};
    if (parts != nullptr) std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", parts);
    return text.data();
}

}  // namespace trevandix
