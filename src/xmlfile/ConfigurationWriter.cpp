#include "xmlfile/ConfigurationWriter.h"

#include "platform/FileSafety.h"
#include "platform/RuntimeError.h"
#include "xmlfile/ConfigurationPrinter.h"
#include "xmlfile/FileBackup.h"
#include "xmlfile/Latin1File.h"

namespace trevandix {

namespace {
constexpr std::size_t kNodesPerSync = 4096;  // about a megabyte
}

std::string Indentation(int depth) {
    return std::string(static_cast<std::size_t>(depth), '\t');
}

void ConfigurationWriter::write(const std::string& filePath) {
    const std::string path = linkTarget(filePath);  // a link stays one
    FileBackup backup(path);
    try {
        inProcedure("CreateXML", [&] {
            Latin1File file(path);
            if (!backup.path().empty()) copyRights(backup.path(), path);
            ConfigurationPrinter printer(configuration_);
            while (printer.printSome(file, kNodesPerSync)) file.beginSync();
            file.sync();
            file.close();
        });
    } catch (const RuntimeError& failure) {
        backup_ = backup.path();
        throw backup.explained(failure);
    }
    backup.discard();
}

}  // namespace trevandix
