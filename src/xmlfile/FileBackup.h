#pragma once

#include <string>

#include "platform/RuntimeError.h"

namespace trevandix {

/// The content that a file had before a new one was begun in its place: under the file's name with ".bak"
/// behind it, or ".bak2" and so on, so that nothing left by an earlier failure is ever replaced.
class FileBackup {
public:
    /// Moves the file, if there is one; the path is free afterwards. Errors, the file being untouched then:
    /// PermissionDenied, PathFileAccess.
    explicit FileBackup(const std::string& filePath);

    /// The new file is complete. Without it the backup stays.
    void discard();

    /// Empty when there was no file.
    const std::string& path() const { return path_; }
    /// The failure of writing the new file, with a word on where the old content is.
    RuntimeError explained(const RuntimeError& failure) const;

private:
    std::string path_;
};

/// The backup of a file that an interrupted save left beside it, the one made last; empty where there is none
/// that goes to its end.
std::string wholeBackupOf(const std::string& filePath);

}  // namespace trevandix
