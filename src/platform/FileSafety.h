#pragma once

#include <cstdio>
#include <string>
#include <system_error>

namespace trevandix {

/// Gives the file another name in one step that leaves it under the old or the new name whatever happens.
/// Never replaces: errc::file_exists when the new name is taken.
std::error_code moveToFreeName(const std::string& from, const std::string& to);

/// False for a file that is marked as not to be written, or that this user may not write.
bool mayBeWritten(const std::string& filePath);

/// Lets the disk begin with what has been written, without a wait. Only a hint: what fails, or cannot be, is
/// left to `syncFile`.
void beginSync(std::FILE* file);

/// Returns when everything written is on the disk. Errors: as `throwFileError`.
void syncFile(std::FILE* file);

/// Where programs keep what is neither configuration nor document, with this program's own folder; empty when
/// the system names none. The folder need not exist.
std::string userStateFolder();

}  // namespace trevandix
