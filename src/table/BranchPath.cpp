#include "table/BranchPath.h"

namespace trevandix {

namespace {
constexpr char kEscape = '\\';
constexpr char kJoint = '.';
constexpr std::string_view kEmptyName = "\\0";
}  // namespace

void appendBranch(std::string& path, std::string_view name) {
    if (!path.empty()) path += kJoint;
    if (name.empty()) path += kEmptyName;
    for (const char c : name) {
        if (c == kEscape || c == kJoint) path += kEscape;
        path += c;
    }
}

std::optional<std::vector<std::string>> branchNames(std::string_view path) {
    std::vector<std::string> names;
    if (path.empty()) return names;
    bool begun = false;  // the last name has something of its own
    names.emplace_back();
    for (std::size_t at = 0; at < path.size(); ++at) {
        if (path[at] == kJoint) {
            if (!begun) return std::nullopt;
            names.emplace_back();
            begun = false;
            continue;
        }
        if (path[at] != kEscape) {
            names.back() += path[at];
        } else if (path.substr(at, 2) == kEmptyName && !begun) {
            ++at;
            if (at + 1 < path.size() && path[at + 1] != kJoint) return std::nullopt;
        } else {
            if (++at == path.size() || (path[at] != kEscape && path[at] != kJoint)) return std::nullopt;
            names.back() += path[at];
        }
        begun = true;
    }
    if (!begun) return std::nullopt;
    return names;
}

}  // namespace trevandix
