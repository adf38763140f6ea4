#include "platform/FileSafety.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/FileAccess.h"

#ifdef _WIN32
#include <windows.h>
// After it: needs its types.
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace trevandix {

std::string linkTarget(const std::string& filePath) {
    std::error_code error;
    if (!std::filesystem::is_symlink(fromUtf8(filePath), error)) return filePath;
    const std::filesystem::path target = std::filesystem::weakly_canonical(fromUtf8(filePath), error);
    return error ? filePath : toUtf8(target);
}

#ifdef _WIN32

std::error_code moveToFreeName(const std::string& from, const std::string& to) {
    if (MoveFileExW(fromUtf8(from).c_str(), fromUtf8(to).c_str(), 0) != 0) return {};
    switch (GetLastError()) {
        case ERROR_ALREADY_EXISTS:
        case ERROR_FILE_EXISTS:
            return std::make_error_code(std::errc::file_exists);
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return std::make_error_code(std::errc::permission_denied);
        default:
            return std::make_error_code(std::errc::io_error);
    }
}

bool mayBeWritten(const std::string& filePath) {
    const DWORD attributes = GetFileAttributesW(fromUtf8(filePath).c_str());
    return attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

void syncFile(std::FILE* file) {
    errno = 0;
    if (std::fflush(file) != 0 || _commit(_fileno(file)) != 0) throwFileError(errno);
}

void beginSync(std::FILE*) {}

// A new file has those of its folder, as every program leaves it here.
void copyRights(const std::string&, const std::string&) {}

std::string userStateFolder() {
    const wchar_t* folder = _wgetenv(L"LOCALAPPDATA");
    if (folder == nullptr || *folder == L'\0') return {};
    return toUtf8(std::filesystem::path(folder) / "VOSKAutomation" / "trevandix-editor");
}

#else

namespace {
std::error_code lastError() {
    return {errno, std::generic_category()};
}
}  // namespace

// Not every file system has the one step that never replaces; those that lack it mostly have hard links,
// which never replace either; the others have no more than a look before.
std::error_code moveToFreeName(const std::string& from, const std::string& to) {
#ifdef RENAME_NOREPLACE
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
    if (errno != EINVAL && errno != ENOSYS) return lastError();
#endif
    if (link(from.c_str(), to.c_str()) == 0) {
        if (unlink(from.c_str()) == 0) return {};
        const std::error_code error = lastError();
        unlink(to.c_str());
        return error;
    }
    if (errno == EEXIST || errno == ENOENT || errno == EACCES) return lastError();
    if (access(to.c_str(), F_OK) == 0) return std::make_error_code(std::errc::file_exists);
    return rename(from.c_str(), to.c_str()) == 0 ? std::error_code() : lastError();
}

bool mayBeWritten(const std::string& filePath) {
    return access(filePath.c_str(), W_OK) == 0 || (errno != EACCES && errno != EROFS);
}

void syncFile(std::FILE* file) {
    errno = 0;
    if (std::fflush(file) != 0) throwFileError(errno);
    // What is no file on a disk cannot be brought there.
    if (fsync(fileno(file)) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS)
        throwFileError(errno);
}

void copyRights(const std::string& from, const std::string& to) {
    struct stat model {};
    struct stat made {};
    if (stat(from.c_str(), &model) != 0 || stat(to.c_str(), &made) != 0) return;
    // The group alone as well: that is what a user who does not own the file may often set. Without it, what
    // the group was allowed is not for another one.
    mode_t mode = model.st_mode & 0777U;
    if (model.st_uid != made.st_uid || model.st_gid != made.st_gid) {
        if (chown(to.c_str(), model.st_uid, model.st_gid) != 0 &&
            chown(to.c_str(), static_cast<uid_t>(-1), model.st_gid) != 0) {
            mode &= ~static_cast<mode_t>(S_IRWXG);
        }
    }
    chmod(to.c_str(), mode);
}

void beginSync(std::FILE* file) {
#ifdef SYNC_FILE_RANGE_WRITE
    sync_file_range(fileno(file), 0, 0, SYNC_FILE_RANGE_WRITE);
#else
    static_cast<void>(file);
#endif
}

std::string userStateFolder() {
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr && *state == '/') return std::string(state) + "/trevandix-editor";
    const char* home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::string(home) + "/.local/state/trevandix-editor"
                                           : std::string();
}

#endif

}  // namespace trevandix
