#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace trevandix {

/// Converts between a path and its UTF-8 form, in which the program passes paths on every system.
std::filesystem::path fromUtf8(std::string_view path);
std::string toUtf8(const std::filesystem::path& path);

/// Opens a file; `mode` as of `fopen`. The caller closes it. Errors as `throwFileError`.
std::FILE* openFile(const std::string& filePath, const char* mode);

bool fileExists(const std::string& filePath);

/// Limit of `readWholeFile`, in bytes: far more than any plant needs, but within the memory of usual
/// machines.
inline constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

/// The whole file. Errors as `throwFileError`; PathFileAccess for a folder; OutOfMemory for more than
/// kLargestFile bytes, before they are read.
std::string readWholeFile(const std::string& filePath);

/// This program's folder for data that is neither configuration nor document; empty when the system has no
/// place for it. The folder may not exist yet.
std::string userStateFolder();

/// Throws the RuntimeError that an `errno` of a file operation stands for: FileNotFound, PermissionDenied,
/// DiskFull, OutOfMemory or PathFileAccess.
[[noreturn]] void throwFileError(int error);

}  // namespace trevandix
