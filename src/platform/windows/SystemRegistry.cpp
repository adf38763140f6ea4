#include <windows.h>
// These need the types of windows.h.
#include <objbase.h>
#include <shellapi.h>

#include <string>

#include "platform/FileAccess.h"
#include "platform/Services.h"

namespace trevandix {

namespace {

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

bool publishAlone(std::string_view interfaceKind, const std::wstring& filePath) {
    const std::string path = "Software\\VOSKAutomation\\" + std::string(interfaceKind);
    const bool in64 = publishInView(path, filePath, KEY_WOW64_64KEY);
    const bool in32 = publishInView(path, filePath, KEY_WOW64_32KEY);
    return in64 && in32;
}

// Services and remote shells have no desktop, so the system could ask nobody.
bool desktopIsVisible() {
    USEROBJECTFLAGS flags{};
    return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) !=
               0 &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

std::wstring ownPath() {
    constexpr std::size_t kLongest = 32768;  // of any path
    std::wstring path(kLongest, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

// A path holds no quotation mark and does not end with a backslash, so plain quotes are enough.
Publication publishByChild(std::string_view interfaceKind, const std::wstring& filePath) {
    if (!desktopIsVisible()) return Publication::NobodyToAsk;
    const std::wstring program = ownPath();
    const std::wstring arguments =
        fromUtf8(std::string(kPublishValues).append(" ").append(interfaceKind)).wstring() + L" \"" +
        filePath + L"\"";
    const bool initialised = SUCCEEDED(
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));  // the shell may use COM
    SHELLEXECUTEINFOW child{};
    child.cbSize = sizeof child;
    child.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    child.hwnd = GetActiveWindow();  // in front of which the system asks
    if (child.hwnd == nullptr) child.hwnd = GetConsoleWindow();
    child.lpVerb = L"runas";
    child.lpFile = program.c_str();
    child.lpParameters = arguments.c_str();
    child.nShow = SW_HIDE;
    const bool started = ShellExecuteExW(&child) != 0 && child.hProcess != nullptr;
    DWORD code = 1;
    if (started) {
        WaitForSingleObject(child.hProcess, INFINITE);
        GetExitCodeProcess(child.hProcess, &code);
        CloseHandle(child.hProcess);
    }
    if (initialised) CoUninitialize();
    if (!started) return Publication::RightsDenied;
    return code == 0 ? Publication::Done : Publication::Refused;
}

}  // namespace

Publication SystemRegistry::publish(std::string_view interfaceKind, std::string_view filePath,
                                    Rights rights) {
    const std::wstring file = fromUtf8(filePath).wstring();
    if (publishAlone(interfaceKind, file)) return Publication::Done;
    return rights == Rights::Own ? Publication::Refused : publishByChild(interfaceKind, file);
}

bool SystemRegistry::canAsk() const {
    return true;
}

bool SystemRegistry::onMappedDrive(std::string_view filePath) const {
    const std::wstring drive = fromUtf8(filePath).root_name().wstring();
    return drive.ends_with(L':') && GetDriveTypeW((drive + L"\\").c_str()) == DRIVE_REMOTE;
}

}  // namespace trevandix
