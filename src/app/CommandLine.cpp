#include "app/CommandLine.h"

#include "Version.h"

namespace trevandix {

namespace {

const std::string kProgramName(kProgram);

std::string usage() {
    return "Usage: " + kProgramName +
           " [FILE]\n"
           "Opens the configuration FILE, or starts without one.\n\n"
           "  -h, --help   show this text\n"
           "  --version    show the version\n";
}

CommandLine wrong(const std::string& reason) {
    return {{}, kProgramName + ": " + reason + "\n\n" + usage(), 2};
}

}  // namespace

CommandLine readCommandLine(const std::vector<std::string>& arguments) {
    CommandLine result;
    bool options = true;
    for (const std::string& argument : arguments) {
        if (options && argument == "--") {
            options = false;
        } else if (options && argument.starts_with('-')) {
            if (argument == "--help" || argument == "-h") return {{}, usage(), 0};
            if (argument == "--version")
                return {{}, std::string(kProduct) + " " + std::string(kVersion) + "\n", 0};
            return wrong("there is no option \"" + argument + "\".");
        } else if (!result.file.empty()) {
            return wrong("one file at a time. Start the program once for each configuration.");
        } else {
            result.file = argument;
        }
    }
    return result;
}

}  // namespace trevandix
