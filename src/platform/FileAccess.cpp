#include "platform/FileAccess.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/RuntimeError.h"

namespace trevandix {

std::filesystem::path fromUtf8(std::string_view path) {
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

std::string toUtf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::FILE* openFile(const std::string& filePath, const char* mode) {
    errno = 0;
#ifdef _WIN32
    const std::string_view narrow(mode);
    std::FILE* file = _wfopen(fromUtf8(filePath).c_str(), std::wstring(narrow.begin(), narrow.end()).c_str());
#else
    std::FILE* file = std::fopen(filePath.c_str(), mode);
#endif
    if (file == nullptr) throwFileError(errno);
    return file;
}

bool fileExists(const std::string& filePath) {
    std::error_code ignored;
    return std::filesystem::exists(fromUtf8(filePath), ignored);
}

std::string userStateFolder() {
#ifdef _WIN32
    const wchar_t* folder = _wgetenv(L"LOCALAPPDATA");
    if (folder == nullptr || *folder == L'\0') return {};
    return toUtf8(std::filesystem::path(folder) / "VOSKAutomation" / "trevandix-editor");
#else
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr && *state == '/') return std::string(state) + "/trevandix-editor";
    const char* home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::string(home) + "/.local/state/trevandix-editor"
                                           : std::string();
#endif
}

namespace {
[[noreturn]] void throwTooLarge() {
    throw RuntimeError(ErrorNumber::OutOfMemory,
                       "the file has more than " + std::to_string(kLargestFile >> 20U) + " MiB");
}
}  // namespace

std::string readWholeFile(const std::string& filePath) {
    std::error_code error;
    // A folder has no bytes, and a pipe could make the program wait for ever.
    const auto kind = std::filesystem::status(fromUtf8(filePath), error).type();
    if (kind == std::filesystem::file_type::directory || kind == std::filesystem::file_type::fifo ||
        kind == std::filesystem::file_type::socket) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    const std::unique_ptr<std::FILE, Closer> file(openFile(filePath, "rb"));
    const auto size = std::filesystem::file_size(fromUtf8(filePath), error);
    if (!error && size > kLargestFile) throwTooLarge();
    std::string bytes;
    if (!error) bytes.reserve(static_cast<std::size_t>(size));
    // Reads through a small buffer: a string that is resized first would be written twice.
    std::array<char, std::size_t{1} << 16> piece{};
    while (const std::size_t length = std::fread(piece.data(), 1, piece.size(), file.get())) {
        if (bytes.size() > kLargestFile) throwTooLarge();
        bytes.append(piece.data(), length);
    }
    if (std::ferror(file.get()) != 0) throwFileError(errno);
    return bytes;
}

void throwFileError(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            throw RuntimeError(ErrorNumber::FileNotFound);
        case EACCES:
        case EPERM:
        case EROFS:
            throw RuntimeError(ErrorNumber::PermissionDenied);
        case ENOSPC:
            throw RuntimeError(ErrorNumber::DiskFull);
        case ENOMEM:
            throw RuntimeError(ErrorNumber::OutOfMemory);
        default:
            throw RuntimeError(ErrorNumber::PathFileAccess);
    }
}

}  // namespace trevandix
