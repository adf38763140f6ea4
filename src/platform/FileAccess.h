#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace trevandix {

/// A path from its UTF-8 form, which is how paths travel through the program on every system.
std::filesystem::path fromUtf8(std::string_view path);
std::string toUtf8(const std::filesystem::path& path);

/// Opens a file. The caller closes it. Errors as `throwFileError`.
std::FILE* openFile(const std::string& filePath, const char* mode);

bool fileExists(const std::string& filePath);

/// Far beyond any plant, and still read within the memory that machines have.
inline constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

/// The whole file. Errors as `throwFileError`; PathFileAccess for a folder; OutOfMemory for more than
/// kLargestFile bytes, before they are read.
std::string readWholeFile(const std::string& filePath);

/// Where programs keep what is neither configuration nor document, with this program's own folder; empty when
/// the system names none. The folder need not exist.
std::string userStateFolder();

/// Throws the RuntimeError that an `errno` of a file operation stands for: FileNotFound, PermissionDenied,
/// DiskFull, OutOfMemory or PathFileAccess.
[[noreturn]] void throwFileError(int error);

}  // namespace trevandix
