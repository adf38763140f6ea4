#include "xmlfile/FormatWords.h"

#include <algorithm>
#include <array>
#include <string>

#include "model/clsPLC.h"
#include "platform/Text.h"
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

bool hasRootEndTag(std::string_view text) {
    text = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
    return std::ranges::any_of(kKinds, [&](const FileKind& kind) {
        const std::string end = "</" + std::string(kind.upperRoot) + ">";
        return text.size() > end.size() && upperCased(text.substr(text.size() - end.size())) == end;
    });
}

}  // namespace trevandix
