#include "xmlfile/FileBackup.h"

#include <filesystem>

#include "platform/FileAccess.h"
#include "platform/FileSafety.h"
#include "xmlfile/Latin1File.h"

namespace trevandix {

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
    const std::size_t description = describe(failure.number()).size();
    std::string detail = std::string(failure.what()).substr(description);
    if (!detail.empty()) detail = detail.substr(2) + "; ";
    RuntimeError error(failure.number(), detail + "the previous file is kept as " + path_);
    if (!failure.procedure().empty()) error.nameProcedure(failure.procedure());
    return error;
}

}  // namespace trevandix
