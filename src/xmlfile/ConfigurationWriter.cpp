#include "xmlfile/ConfigurationWriter.h"

#include "platform/RuntimeError.h"
#include "xmlfile/ConfigurationPrinter.h"
#include "xmlfile/Latin1Lines.h"

namespace trevandix {

namespace {
constexpr std::size_t kNodesPerSync = 4096;  // about a megabyte
}

std::string Indentation(int depth) {
    return std::string(static_cast<std::size_t>(depth), '\t');
}

void ConfigurationWriter::write(const std::string& filePath, SafeFile& file) const {
    file.replace(filePath, [&](OutputFile& out) {
        inProcedure("CreateXML", [&] {
            Latin1Lines lines(out);
            ConfigurationPrinter printer(configuration_);
            while (printer.printSome(lines, kNodesPerSync)) out.beginSync();
        });
    });
}

}  // namespace trevandix
