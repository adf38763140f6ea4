#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

/// The names of nested branches as one text: joined by ".", with `\.` and `\\` for these characters in a name
/// and `\0` for an empty name. No branch is the empty text.
void appendBranch(std::string& path, std::string_view name);

/// The names again; nothing if the path has a name that is empty without `\0`, or `\` before another
/// character.
std::optional<std::vector<std::string>> branchNames(std::string_view path);

}  // namespace trevandix
