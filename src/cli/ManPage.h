#pragma once

#include <string>

namespace CLI {
class App;
}

namespace trevandix {

/// The program's page for `man`, made of its help texts.
std::string manPage(const CLI::App& app);

}  // namespace trevandix
