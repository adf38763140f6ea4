#include "xmlfile/FormatWords.h"

#include <array>

#include "model/clsPLC.h"
#include "platform/Xml.h"

namespace trevandix {

namespace {
constexpr std::array kKinds{
    FileKind{kTcpIp, "VOSKModBusTcpIpCfg", "VOSKMODBUSTCPIPCFG"},
    FileKind{kRtu, "VOSKModBusRTUCfg", "VOSKMODBUSRTUCFG"},
};
}  // namespace

const FileKind* fileKindOf(std::string_view interfaceKind) {
    for (const FileKind& kind : kKinds) {
        if (kind.interfaceKind == interfaceKind) return &kind;
    }
    return nullptr;
}

const FileKind* fileKindOfRoot(const XmlElement& root) {
    for (const FileKind& kind : kKinds) {
        if (root && root.isNamed(kind.upperRoot)) return &kind;
    }
    return nullptr;
}

}  // namespace trevandix
