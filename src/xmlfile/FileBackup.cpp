#include "xmlfile/FileBackup.h"

#include <filesystem>

#include "platform/FileAccess.h"
#include "platform/FileSafety.h"
#include "xmlfile/FormatWords.h"
#include "xmlfile/Latin1File.h"

namespace trevandix {

namespace {

// A file that was cut off lacks its end tag.
bool isWhole(const std::string& filePath) {
    try {
        return hasRootEndTag(readWholeFile(filePath));
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

FileBackup::FileBackup(const std::string& filePath) {
    if (!fileExists(filePath)) return;
    std::error_code error;
    if (std::filesystem::is_directory(fromUtf8(filePath), error))
        throw RuntimeError(ErrorNumber::PathFileAccess);
    if (!mayBeWritten(filePath)) throw RuntimeError(ErrorNumber::PermissionDenied);
    const std::string first = filePath + ".bak";
    std::string name = first;
    for (unsigned number = 2;; ++number) {
        error = moveToFreeName(filePath, name);
        if (error != std::errc::file_exists) break;
        name = first + std::to_string(number);
    }
    // Where nothing can be made, the new name is what is not found.
    if (error == std::errc::no_such_file_or_directory) throw RuntimeError(ErrorNumber::PermissionDenied);
    if (error) throwFileError(error.value());
    path_ = name;
}

// The new file is whole; a backup that cannot be removed harms nobody.
void FileBackup::discard() {
    if (path_.empty()) return;
    std::error_code ignored;
    std::filesystem::remove(fromUtf8(path_), ignored);
}

RuntimeError FileBackup::explained(const RuntimeError& failure) const {
    if (path_.empty()) return failure;
    return failure.with("the previous file is kept as " + path_);
}

std::string wholeBackupOf(const std::string& filePath) {
    std::string found;
    std::string name = filePath + ".bak";
    for (unsigned number = 2; fileExists(name); ++number) {
        if (isWhole(name)) found = name;
        name = filePath + ".bak" + std::to_string(number);
    }
    return found;
}

}  // namespace trevandix
