#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace trevandix {

/// By what a file is known again: another size or time means that somebody has written it since.
struct FileStamp {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type time;

    /// Nothing when there is no such file.
    static std::optional<FileStamp> of(const std::string& filePath);
    /// The time of writing as local date and time, such as "2024-05-01 13:45:00".
    std::string localTime() const;
    bool operator==(const FileStamp&) const = default;
};

}  // namespace trevandix
