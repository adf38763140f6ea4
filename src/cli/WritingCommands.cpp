#include "cli/Commands.h"
#include "cli/Files.h"
#include "model/ValueTypes.h"
#include "platform/SafeFile.h"
#include "xmlfile/ConfigurationPrinter.h"
#include "xmlfile/Latin1Lines.h"

namespace trevandix {

ExitCode FormatCommand::run(const Console& console, XmlParser& parser) const {
    if (!out.empty() && !force) requireFree(out);
    const auto stamp = FileStamp::of(file);  // before reading: who writes meanwhile is noticed
    std::string skipped;
    const Configuration& configuration = readFile(parser, file, &skipped);
    warnOfSkipped(console, file, skipped, inPlace, force);
    warnOfUnreadable(console, file, configuration);
    const std::string& target = inPlace ? file : out;
    if (target.empty()) {
        constexpr std::size_t kNodesPerCall = 4096;
        Latin1Lines lines(console.out);
        ConfigurationPrinter printer(configuration);
        while (printer.printSome(lines, kNodesPerCall)) {
        }
        return kNothingFound;
    }
    requireUnchanged(file, stamp);
    if (!inPlace && !force) requireFree(out);
    writeFile(configuration, target);
    return kNothingFound;
}

ExitCode NewCommand::run() const {
    if (!force) requireFree(out);
    Configuration configuration;
    configuration.beginNew(out);
    configuration.setInterfaceKind(kind == "tcp" ? kTcpIp : kRtu);
    for (const ModbusTable& table : modbusTables()) configuration.addDataType(clsModBusType::usual(table));
    writeFile(configuration, out);
    return kNothingFound;
}

}  // namespace trevandix
