#include "platform/SafeFile.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <system_error>

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"

#ifdef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <windows.h>
// After it: needs its types.
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace trevandix {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 19;

#ifdef _WIN32

std::error_code moveToFreeName(const std::string& from, const std::string& to) {
    if (MoveFileExW(fromUtf8(from).c_str(), fromUtf8(to).c_str(), 0) != 0) return {};
    switch (GetLastError()) {
        case ERROR_ALREADY_EXISTS:
        case ERROR_FILE_EXISTS:
            return std::make_error_code(std::errc::file_exists);
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_INVALID_NAME:
        case ERROR_PATH_NOT_FOUND:  // the folder has the file, so the path is too long
            return std::make_error_code(std::errc::filename_too_long);
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return std::make_error_code(std::errc::permission_denied);
        default:
            return std::make_error_code(std::errc::io_error);
    }
}

bool mayBeWritten(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(fromUtf8(path).c_str());
    return attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

bool bringToDisk(std::FILE* file) {
    return _commit(_fileno(file)) == 0;
}

std::FILE* makeFile(const std::string& path) {
    errno = 0;
    const int handle =
        _wopen(fromUtf8(path).c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
    std::FILE* file = handle < 0 ? nullptr : _fdopen(handle, "wb");
    if (file == nullptr) throwFileError(errno);
    return file;
}

// A new file has those of its folder, as every program leaves it here.
void copyRights(const std::string&, const std::string&) {}

#else

std::error_code lastError() {
    return {errno, std::generic_category()};
}

// One step that leaves the file under the old or the new name, and never replaces (errc::file_exists). Not
// every file system has it; those that lack it mostly have hard links, which never replace either; the others
// have no more than a look before.
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

bool mayBeWritten(const std::string& path) {
    return access(path.c_str(), W_OK) == 0 || (errno != EACCES && errno != EROFS);
}

std::FILE* makeFile(const std::string& path) {
    return openFile(path, "wbx");
}

// What is no file on a disk cannot be brought there.
bool bringToDisk(std::FILE* file) {
    return fsync(fileno(file)) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

void copyRights(const std::string& from, const std::string& to) {
    struct stat model {};
    struct stat made {};
    if (stat(from.c_str(), &model) != 0 || stat(to.c_str(), &made) != 0) return;
    // The group alone as well: that is what a user who does not own the file may often set. Without it, the
    // file's new group may do what everybody may.
    mode_t mode = model.st_mode & 0777U;
    if (model.st_uid != made.st_uid || model.st_gid != made.st_gid) {
        if (chown(to.c_str(), model.st_uid, model.st_gid) != 0 &&
            chown(to.c_str(), static_cast<uid_t>(-1), model.st_gid) != 0) {
            mode = (mode & ~static_cast<mode_t>(S_IRWXG)) | (mode & S_IRWXO) << 3U;
        }
    }
    chmod(to.c_str(), mode);
}

#endif

std::string linkTarget(const std::string& filePath) {
    std::error_code error;
    if (!fs::is_symlink(fromUtf8(filePath), error)) return filePath;
    const fs::path target = fs::weakly_canonical(fromUtf8(filePath), error);
    return error ? filePath : toUtf8(target);
}

std::string backupName(const std::string& path, unsigned number) {
    return path + ".bak" + (number == 1 ? "" : std::to_string(number));
}

// Frees the path. Returns the file's new name, empty when there was none.
std::string moveAside(const std::string& path) {
    if (!fileExists(path)) return {};
    std::error_code error;
    if (!fs::is_regular_file(fromUtf8(path), error)) throw RuntimeError(ErrorNumber::PathFileAccess);
    if (!mayBeWritten(path)) throw RuntimeError(ErrorNumber::PermissionDenied);
    for (unsigned number = 1;; ++number) {
        const std::string name = backupName(path, number);
        error = moveToFreeName(path, name);
        if (!error) return name;
        if (error == std::errc::filename_too_long) {
            throw RuntimeError(ErrorNumber::PathFileAccess,
                               "the name is too long for the \".bak\" behind it that saving needs");
        }
        // Where nothing can be made, the new name is what is not found.
        if (error == std::errc::no_such_file_or_directory) throw RuntimeError(ErrorNumber::PermissionDenied);
        if (error != std::errc::file_exists) throwFileError(error.value());
    }
}

}  // namespace

std::optional<FileStamp> FileStamp::of(const std::string& filePath) {
    std::error_code error;
    FileStamp stamp;
    stamp.size = fs::file_size(fromUtf8(filePath), error);
    if (error) return std::nullopt;
    stamp.time = fs::last_write_time(fromUtf8(filePath), error);
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

OutputFile::OutputFile(const std::string& filePath) : buffer_(kPiece), file_(makeFile(filePath)) {
    std::setvbuf(file_, buffer_.data(), _IOFBF, buffer_.size());
}

OutputFile::~OutputFile() {
    if (file_ != nullptr) std::fclose(file_);  // a failure is on its way to the user already
}

void OutputFile::write(std::string_view bytes) {
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) throwFileError(errno);
}

void OutputFile::beginSync() {
#ifdef SYNC_FILE_RANGE_WRITE
    sync_file_range(fileno(file_), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

void OutputFile::sync() {
    errno = 0;
    if (std::fflush(file_) != 0 || !bringToDisk(file_)) throwFileError(errno);
}

void OutputFile::close() {
    std::FILE* file = file_;
    file_ = nullptr;
    errno = 0;
    if (std::fclose(file) != 0) throwFileError(errno);
}

void SafeFile::replace(const std::string& filePath, const std::function<void(OutputFile&)>& write) {
    const std::string path = linkTarget(filePath);
    putOldBack(path);
    stamp_ = FileStamp::of(path);
    const std::string backup = moveAside(path);
    std::optional<OutputFile> file;
    const auto keepBooks = [&] {
        const bool ours = file.has_value();  // what is at the path, not another program's work
        file.reset();
        if (ours) stamp_ = FileStamp::of(path);
        if (!backup.empty()) unfinished_ = {path, ours ? stamp_ : std::nullopt, backup};
    };
    try {
        file.emplace(path);
        if (!backup.empty()) copyRights(backup, path);
        write(*file);
        file->sync();
        file->close();
    } catch (const RuntimeError& failure) {
        keepBooks();
        if (backup.empty()) throw;
        throw failure.with("the previous file is kept as " + backup);
    } catch (...) {
        keepBooks();
        throw;
    }
    stamp_ = FileStamp::of(path);
    if (backup.empty()) return;
    std::error_code ignored;  // the new file is whole, a backup that stays harms nobody
    fs::remove(fromUtf8(backup), ignored);
}

// So that the next save keeps the whole file, not the part of it that a failed one left.
void SafeFile::putOldBack(const std::string& path) {
    if (!unfinished_ || unfinished_->path != path) return;
    std::error_code ignored;
    if (unfinished_->stamp == FileStamp::of(path))
        fs::rename(fromUtf8(unfinished_->backup), fromUtf8(path), ignored);
    unfinished_.reset();
}

void SafeFile::opened(const std::optional<FileStamp>& stamp) {
    stamp_ = stamp;
    unfinished_.reset();
}

std::optional<FileStamp> SafeFile::changedByOthers(const std::string& filePath) const {
    const auto now = FileStamp::of(filePath);
    return stamp_ && now != stamp_ ? now : std::nullopt;
}

std::vector<std::string> SafeFile::backupsOf(const std::string& filePath) {
    const std::string path = linkTarget(filePath);
    std::vector<std::string> found;
    for (unsigned number = 1; fileExists(backupName(path, number)); ++number)
        found.push_back(backupName(path, number));
    return found;
}

}  // namespace trevandix
