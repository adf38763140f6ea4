#pragma once

#include <string>
#include <vector>

namespace trevandix {

/// What the program was started for.
struct CommandLine {
    std::string file;    ///< to open; empty for none
    std::string answer;  ///< to show instead of starting, ends with a line break; empty: start
    int exitCode = 0;    ///< with an answer: 0 when it was asked for, 2 when the command line is wrong
};

/// `arguments` without the program's own name, in UTF-8.
CommandLine readCommandLine(const std::vector<std::string>& arguments);

}  // namespace trevandix
