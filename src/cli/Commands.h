#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/Console.h"

namespace trevandix {

class Registry;
class XmlParser;

/// What a command ends with.
enum ExitCode : int {
    kNothingFound = 0,  ///< or: done
    kFound = 1,         ///< findings, differences, refused rows or a refused publication
    kFailed = 2,        ///< a file that cannot be read or written, or a wrong command line
};

// The commands of the command line, each with its arguments. File names are UTF-8. Errors of all commands:
// CommandError, those of the console.

struct CheckCommand {
    std::vector<std::string> files;
    std::string format = "text";  ///< or "json"
    bool strict = false;          ///< a warning counts as an error

    /// Goes on after a file that cannot be read, having complained.
    ExitCode run(const Console& console, XmlParser& parser) const;
};

struct DiffCommand {
    std::string before;
    std::string after;

    ExitCode run(const Console& console, XmlParser& parser) const;
};

struct FormatCommand {
    std::string file;
    std::string out;       ///< empty for none; without a target the result is printed
    bool inPlace = false;  ///< the target is the file itself
    bool force = false;    ///< `out` may exist

    ExitCode run(const Console& console, XmlParser& parser) const;
};

struct NewCommand {
    std::string kind;  ///< "tcp" or "rtu"
    std::string out;
    bool force = false;  ///< `out` may exist

    ExitCode run() const;
};

struct ListCommand {
    std::string file;
    bool units = false;  ///< instead of items
    bool types = false;  ///< instead of items
    std::string separator = "comma";
    std::string out;     ///< empty for none; without a target the table is printed
    bool force = false;  ///< `out` may exist

    ExitCode run(const Console& console, XmlParser& parser) const;
};

struct ImportCommand {
    std::string file;
    std::vector<std::string> tables;  ///< "-" is standard input
    std::string out;                  ///< empty with `inPlace`
    bool inPlace = false;             ///< the target is the file itself; untouched when nothing changes
    bool force = false;               ///< `out` may exist
    bool dryRun = false;              ///< writes nothing
    bool skipRefused = false;         ///< writes although rows were refused

    ExitCode run(const Console& console, XmlParser& parser) const;
};

struct PublishCommand {
    std::string file;
    bool elevate = false;  ///< asks the user for administrator's rights if the program's own are too few

    /// Publishes the file as Save does, having read it for its interface kind.
    ExitCode run(const Console& console, XmlParser& parser, Registry& registry) const;
};

}  // namespace trevandix
