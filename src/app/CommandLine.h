#pragma once

#include <string>
#include <vector>

namespace trevandix {

/// What the command line asks for.
struct CommandLine {
    std::string file;    ///< file to open; empty for none
    std::string answer;  ///< text to show instead of starting, ending with a line break; empty to start
    int exitCode = 0;    ///< with an answer: 0 for requested text, 2 for a wrong command line
};

/// `arguments` are UTF-8 and do not include the program's own name.
CommandLine readCommandLine(const std::vector<std::string>& arguments);

}  // namespace trevandix
