#include "cli/Commands.h"
#include "cli/Files.h"
#include "platform/FileAccess.h"
#include "platform/Services.h"

namespace trevandix {

namespace {

// Without "." and "..", unless ".." follows a link to another folder.
std::string absolutePath(const std::string& file) {
    const std::filesystem::path whole = std::filesystem::absolute(fromUtf8(file));
    const std::filesystem::path plain = whole.lexically_normal();
    std::error_code error;
    return toUtf8(std::filesystem::equivalent(whole, plain, error) ? plain : whole);
}

}  // namespace

ExitCode PublishCommand::run(const Console& console, XmlParser& parser, Registry& registry) const {
    const std::string& kind = readFile(parser, file).state.interfaceKind;
    const std::string path = absolutePath(file);
    if (registry.onMappedDrive(path)) complain(console, path + ": warning: " + std::string(kMappedDrive));
    const Publication done = registry.publish(kind, path, elevate ? Rights::Asked : Rights::Own);
    if (done == Publication::Done) return kNothingFound;
    std::string text = path + ": not published: " + std::string(reason(done));
    if (registry.canAsk() && !elevate) text += "; --elevate asks for administrator's rights";
    complain(console, text);
    return kFound;
}

}  // namespace trevandix
