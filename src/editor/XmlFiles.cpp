#include "editor/XmlFiles.h"

namespace trevandix {

bool ImportXML(ConfigurationReader& reader, const std::string& filePath, const Platform& platform) {
    const PointerScope hourglass(platform.pointer, Pointer::Hourglass);
    bool valid = false;
    const bool finished =
        reportErrors(platform.messages, "ImportXML", [&] { valid = reader.read(filePath); });
    if (finished && !valid) platform.messages.show("The configuration file is not valid.");
    return valid;
}

bool CreateXML(ConfigurationWriter& writer, const std::string& filePath, const Platform& platform) {
    const PointerScope hourglass(platform.pointer, Pointer::Hourglass);
    return reportErrors(platform.messages, "CreateXML", [&] { writer.write(filePath); });
}

}  // namespace trevandix
