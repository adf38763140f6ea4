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

/// The file that a path leads to where it is a symbolic link; else the path itself.
std::string linkTarget(const std::string& filePath);

/// Gives a file the rights of another, and its owner and group where this user may. What cannot be stays as
/// it is.
void copyRights(const std::string& from, const std::string& to);

/// Returns when everything written is on the disk. Errors: as `throwFileError`.
void syncFile(std::FILE* file);

/// Where programs keep what is neither configuration nor document, with this program's own folder; empty when
/// the system names none. The folder need not exist.
std::string userStateFolder();

}  // namespace trevandix
