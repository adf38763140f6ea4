// window-answers.exe TITLE FILE: queries the window with this title every ten milliseconds until it is
// closed. Whenever FILE is empty, writes the longest time in milliseconds for which the window has not
// answered since the last time.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

int wmain(int count, wchar_t** texts) {
    if (count != 3) return 2;
    const std::filesystem::path file = texts[2];
    const HWND window = FindWindowW(nullptr, texts[1]);
    if (window == nullptr) return 1;
    double longest = 0;
    while (IsWindow(window) != 0) {
        const auto asked = std::chrono::steady_clock::now();
        DWORD_PTR answer = 0;
        SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, 60'000, &answer);
        const std::chrono::duration<double, std::milli> waited = std::chrono::steady_clock::now() - asked;
        longest = std::max(longest, waited.count());
        std::error_code missing;
        if (std::filesystem::file_size(file, missing) == 0 && !missing) {
            std::ofstream(file) << std::to_string(static_cast<int>(longest)) << '\n';
            longest = 0;
        }
        Sleep(10);
    }
    return 0;
}
