#include "platform/Services.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace trevandix {

namespace {

namespace fs = std::filesystem;

// Ignores relative paths; empty when there is no such folder.
fs::path configurationFolder() {
    const char* folder = std::getenv("XDG_CONFIG_HOME");
    if (folder != nullptr && *folder == '/') return folder;
    const char* home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? fs::path(home) / ".config" : fs::path();
}

bool write(const fs::path& file, std::string_view filePath) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << "ConfigFile=" << filePath << '\n';
    out.close();
    return out.good();
}

}  // namespace

// The user's own rights are enough.
Publication SystemRegistry::publish(std::string_view interfaceKind, std::string_view filePath, Rights) {
    fs::path folder = configurationFolder();
    if (folder.empty()) return Publication::Refused;
    folder /= "VOSKAutomation";
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return Publication::Refused;
    const fs::path file = folder / (std::string(interfaceKind) + ".ini");
    fs::path temporary = file;
    temporary += ".new";
    if (write(temporary, filePath))
        fs::rename(temporary, file, error);
    else
        error = std::make_error_code(std::errc::io_error);
    if (!error) return Publication::Done;
    fs::remove(temporary, error);
    return Publication::Refused;
}

bool SystemRegistry::canAsk() const {
    return false;
}

bool SystemRegistry::onMappedDrive(std::string_view) const {
    return false;
}

}  // namespace trevandix
