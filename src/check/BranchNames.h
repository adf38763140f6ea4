#pragma once

#include <string>
#include <string_view>

// What keeps a branch from being read back under its name: "branch name holds ..."; empty where nothing does.

namespace trevandix {

/// A name that cannot be the name of an XML element.
std::string branchFault(std::string_view name);
/// The name that the elements of items have.
std::string tagFault(std::string_view name);

}  // namespace trevandix
