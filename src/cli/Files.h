#pragma once

#include <functional>
#include <optional>
#include <string>

#include "model/Configuration.h"
#include "platform/SafeFile.h"

namespace trevandix {

struct Console;
class XmlParser;

/// The configuration in the file. It stays until the second call after this one, the last two until the
/// program ends: taking a large one apart would take long. `skipped` becomes what the reader skipped. Errors:
/// CommandError.
Configuration& readFile(XmlParser& parser, const std::string& file, std::string* skipped = nullptr);

/// What `body` does with the file. Errors: CommandError, which names the file, instead of RuntimeError.
void forFile(const std::string& file, const std::function<void()>& body);

/// Refuses to replace a file. Errors: CommandError when there is one.
void requireFree(const std::string& file);

/// Refuses to go on when the file no longer has the stamp that it had before it was read. Errors:
/// CommandError.
void requireUnchanged(const std::string& file, const std::optional<FileStamp>& stamp);

/// Warns if other programs could not read the configuration from a file.
void warnOfUnreadable(const Console& console, const std::string& file, const Configuration& configuration);

/// Warns of what the reader skipped, if anything. Errors: CommandError instead if the file itself would lose
/// it (`inPlace`) and nobody insists (`force`).
void warnOfSkipped(const Console& console, const std::string& file, const std::string& skipped, bool inPlace,
                   bool force);

/// Saves as safely as the editor does. Errors: CommandError.
void writeFile(const Configuration& configuration, const std::string& file);

}  // namespace trevandix
