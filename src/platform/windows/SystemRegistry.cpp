#include "platform/Services.h"

#include <windows.h>

#include <string>

namespace trevandix {

namespace {

std::wstring wide(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring result(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), static_cast<int>(result.size()));
    return result;
}

// The text in the system's ANSI code page; empty if it has other characters.
std::string ansi(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    const bool utf8 = GetACP() == CP_UTF8;  // UTF-8 has every character and accepts no lost-character flag
    const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL lost = FALSE;
    BOOL* report = utf8 ? nullptr : &lost;
    const int length = WideCharToMultiByte(CP_ACP, flags, text.data(), size, nullptr, 0, nullptr, report);
    if (lost != FALSE || length <= 0) return {};
    std::string result(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, flags, text.data(), size, result.data(), length, nullptr, nullptr);
    return result;
}

// The size excludes the terminating zero, as the server expects.
LSTATUS setValue(HKEY key, const std::wstring& filePath) {
    const std::string bytes = ansi(filePath);
    if (bytes.empty() && !filePath.empty()) {
        return RegSetValueExW(key, L"ConfigFile", 0, REG_SZ, reinterpret_cast<const BYTE*>(filePath.data()),
                              static_cast<DWORD>(filePath.size() * sizeof(wchar_t)));
    }
    return RegSetValueExA(key, "ConfigFile", 0, REG_SZ, reinterpret_cast<const BYTE*>(bytes.data()),
                          static_cast<DWORD>(bytes.size()));
}

bool publishInView(const std::string& path, const std::wstring& filePath, REGSAM view) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_SET_VALUE | view, nullptr, &key, nullptr) != ERROR_SUCCESS) {
        return false;
    }
    const LSTATUS status = setValue(key, filePath);
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

}  // namespace

bool SystemRegistry::publish(std::string_view interfaceKind, std::string_view filePath) {
    const std::string path = "Software\\VOSKAutomation\\" + std::string(interfaceKind);
    const std::wstring file = wide(filePath);
    const bool in64 = publishInView(path, file, KEY_WOW64_64KEY);
    const bool in32 = publishInView(path, file, KEY_WOW64_32KEY);
    return in64 && in32;
}

}  // namespace trevandix
