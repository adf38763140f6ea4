#pragma once

#include <memory>
#include <string>

namespace trevandix {

/// A lock that tells other processes that this one is still running. Released on destruction, and by the
/// system when the process ends in any way.
class FileLock {
public:
    /// Locks the file, creating it if it is missing; the file stays afterwards. nullptr when another process
    /// or another FileLock has locked it, or the system refuses.
    static std::unique_ptr<FileLock> tryLock(const std::string& filePath);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
#ifdef _WIN32
    using Handle = void*;
#else
    using Handle = int;
#endif
    explicit FileLock(Handle handle) : handle_(handle) {}
    Handle handle_;
};

}  // namespace trevandix
