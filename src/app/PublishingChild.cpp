#include "app/PublishingChild.h"

#include "model/clsPLC.h"
#include "platform/FileAccess.h"
#include "platform/Services.h"

namespace trevandix {

std::optional<int> publishAsChild(const std::vector<std::string>& arguments) {
    if (arguments.size() != 3 || arguments[0] != kPublishValues) return std::nullopt;
    const std::string& kind = arguments[1];
    const std::string& path = arguments[2];
    if ((kind != kTcpIp && kind != kRtu) || !fromUtf8(path).is_absolute()) return std::nullopt;
    return SystemRegistry().publish(kind, path, Rights::Own) == Publication::Done ? 0 : 1;
}

}  // namespace trevandix
