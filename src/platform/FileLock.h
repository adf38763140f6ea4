#pragma once

#include <memory>
#include <string>

namespace trevandix {

/// Says that a living process uses something: held until it is destroyed or its process ends, however that
/// ends.
class FileLock {
public:
    /// Makes the file when it is missing; it stays afterwards. nullptr when another process, or another lock
    /// of this one, holds it, or when the system refuses.
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
