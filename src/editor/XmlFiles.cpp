#include "editor/XmlFiles.h"

#include "editor/LoadProgress.h"

namespace trevandix {

bool ImportXML(Configuration& configuration, const std::string& filePath, Origin origin,
               const Platform& platform) {
    const PointerScope hourglass(platform.pointer, Pointer::Hourglass);
    LoadProgress progress(platform.window);
    ConfigurationReader reader(configuration, platform.xmlParser, [&] { progress.itemRead(); });
    bool valid = false;
    const bool finished =
        reportErrors(platform.messages, "ImportXML", [&] { valid = reader.read(filePath, origin); });
    if (finished && !valid) platform.messages.show(kNoConfiguration);
    return valid;
}

bool CreateXML(const Configuration& configuration, const std::string& filePath, SafeFile& file,
               const Platform& platform) {
    const PointerScope hourglass(platform.pointer, Pointer::Hourglass);
    return reportErrors(platform.messages, "CreateXML",
                        [&] { ConfigurationWriter(configuration).write(filePath, file); });
}

}  // namespace trevandix
