#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ByteSink.h"

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

/// A file that is being written, in large pieces. Errors of all operations: as `throwFileError`.
class OutputFile : public ByteSink {
public:
    /// Makes the file. Errors: PathFileAccess when there is one.
    explicit OutputFile(const std::string& filePath);
    /// Closes the file with what was written so far; a failure is ignored.
    ~OutputFile() override;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::string_view bytes) override;
    /// Lets the disk begin, so that the wait of `sync` is short. Only a hint.
    void beginSync();
    /// Returns when everything written is on the disk.
    void sync();
    void close();

private:
    std::vector<char> buffer_;
    std::FILE* file_;
};

/// Saves a document's file so that its old or its new content is there in full whatever happens, and tells
/// when another program has written it.
class SafeFile {
public:
    /// Replaces the file at the path, or makes it, with what `write` writes. The old content is beside it,
    /// under the same name with ".bak" behind it (or ".bak2" and so on: nothing left by an earlier failure is
    /// replaced), until the new one is on the disk. A symbolic link stays one; the other names of a file
    /// with hard links keep the old content; rights, owner and group stay as far as the user may set them (on
    /// Windows they are those of the folder).
    ///
    /// Errors: PermissionDenied and PathFileAccess (a folder, pipe or device) before anything is touched;
    /// those of files and of `write` otherwise. The part that was written stays then, and the description
    /// names the old content; when the same file is replaced next, it takes its place back first.
    void replace(const std::string& filePath, const std::function<void(OutputFile&)>& write);

    /// A file that had this stamp has been read; nothing: the document has no file yet.
    void opened(const std::optional<FileStamp>& stamp);
    /// Of the file when it was opened or last saved, or tried to be; nothing when it was neither.
    const std::optional<FileStamp>& stamp() const { return stamp_; }
    /// The stamp of the file at the path when it is no longer `stamp`.
    std::optional<FileStamp> changedByOthers(const std::string& filePath) const;

    /// The old contents that interrupted saves left beside the file, the oldest first.
    static std::vector<std::string> backupsOf(const std::string& filePath);

private:
    void putOldBack(const std::string& path);

    std::optional<FileStamp> stamp_;
    struct Unfinished {
        std::string path;
        std::optional<FileStamp> stamp;
        std::string backup;
    };
    std::optional<Unfinished> unfinished_;  // what a failed save left
};

}  // namespace trevandix
