#include "cli/Files.h"

#include <memory>

#include "check/Check.h"
#include "cli/Console.h"
#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix {

void forFile(const std::string& file, const std::function<void()>& body) {
    try {
        inProcedure("", body);
    } catch (const RuntimeError& failure) {
        throw CommandError(file + ": " + failure.what());
    }
}

Configuration& readFile(XmlParser& parser, const std::string& file, std::string* skipped) {
    static std::unique_ptr<Configuration> before;
    static std::unique_ptr<Configuration> configuration;
    before = std::move(configuration);
    configuration = std::make_unique<Configuration>();
    forFile(file, [&] {
        configuration->begin(file);
        ConfigurationReader reader(*configuration, parser);
        if (!reader.read(file)) throw CommandError(file + ": " + std::string(kNoConfiguration));
        configuration->endLoad();
        if (skipped != nullptr) *skipped = reader.skipped();
    });
    return *configuration;
}

void requireFree(const std::string& file) {
    if (fileExists(file)) throw CommandError(file + ": The file exists. --force replaces it.");
}

void requireUnchanged(const std::string& file, const std::optional<FileStamp>& stamp) {
    if (FileStamp::of(file) != stamp)
        throw CommandError(file + ": Another program changed the file. Nothing was written.");
}

void warnOfUnreadable(const Console& console, const std::string& file, const Configuration& configuration) {
    if (const std::string fault = firstUnreadable(configuration); !fault.empty())
        complain(console, file + ": warning: other programs cannot read the result: " + fault);
}

void warnOfSkipped(const Console& console, const std::string& file, const std::string& skipped, bool inPlace,
                   bool force) {
    if (skipped.empty()) return;
    const std::string what = skipped + " is no part of a configuration";
    if (inPlace && !force)
        throw CommandError(file + ": " + what + " and would be lost. --force writes the file without it.");
    complain(console, file + ": warning: " + what + ", so the result lacks it.");
}

void writeFile(const Configuration& configuration, const std::string& file) {
    forFile(file, [&] { ConfigurationWriter(configuration).write(file); });
}

}  // namespace trevandix
