// The command line.
#include <cstdlib>
#include <string>
#include <vector>

#include "app/PublishingChild.h"
#include "cli/Trevandix.h"
#include "platform/FileAccess.h"
#include "platform/Services.h"
#include "platform/StandardStream.h"
#include "platform/pugi/PugiXml.h"

namespace trevandix {

namespace {

[[noreturn]] void runAndExit(std::vector<std::string> arguments) {
    if (const auto published = publishAsChild(arguments)) std::_Exit(*published);
    StandardStream out(StandardStream::Kind::Output);
    StandardStream err(StandardStream::Kind::Error);
    const Console console{out, err, readStandardInput, out.showsColours()};
    PugiXmlParser parser;
    SystemRegistry registry;
    int code = runTrevandix(console, parser, registry, std::move(arguments));
    try {
        out.flush();
    } catch (const std::exception& failure) {
        complain(console, failure.what());
        code = kFailed;
    }
    std::_Exit(code);  // leaves the configurations to the system
}

}  // namespace

}  // namespace trevandix

#ifdef _WIN32
// Lets the C library expand wildcards, which the shell leaves to the programs here.
extern "C" {
extern int _dowildcard;
int _dowildcard = -1;
}

int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> arguments;
    for (int at = 1; at < argc; ++at) arguments.push_back(trevandix::toUtf8(argv[at]));
    trevandix::runAndExit(std::move(arguments));
}
#else
int main(int argc, char** argv) {
    trevandix::runAndExit({argv + 1, argv + argc});
}
#endif
