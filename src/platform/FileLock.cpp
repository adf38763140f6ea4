#include "platform/FileLock.h"

#include "platform/FileAccess.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace trevandix {

#ifdef _WIN32

// Opens the file for this process alone. Sharing deletion lets the owner delete it while it is locked.
std::unique_ptr<FileLock> FileLock::tryLock(const std::string& filePath) {
    const HANDLE handle = CreateFileW(fromUtf8(filePath).c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return nullptr;
    return std::unique_ptr<FileLock>(new FileLock(handle));
}

FileLock::~FileLock() {
    CloseHandle(handle_);
}

#else

std::unique_ptr<FileLock> FileLock::tryLock(const std::string& filePath) {
    const int handle = open(filePath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (handle < 0) return nullptr;
    if (flock(handle, LOCK_EX | LOCK_NB) == 0) return std::unique_ptr<FileLock>(new FileLock(handle));
    close(handle);
    return nullptr;
}

FileLock::~FileLock() {
    close(handle_);
}

#endif

}  // namespace trevandix
