#include "platform/StandardStream.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <span>
#include <utility>

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>

#include <csignal>
#endif

namespace trevandix {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16;

#ifdef _WIN32

HANDLE handleOf(StandardStream::Kind kind) {
    return GetStdHandle(kind == StandardStream::Kind::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

bool isConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

// A console takes only so much at once. Its code page plays no role this way.
bool writeConsole(HANDLE console, std::string_view bytes) {
    constexpr std::size_t kMost = 8192;
    std::wstring text;
    for (std::size_t at = 0; at < bytes.size();) {
        const char32_t c = nextCodePoint(bytes, at);
        if (c > 0xFFFF) text += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10U));
        text += static_cast<wchar_t>(c > 0xFFFF ? 0xDC00 + (c & 0x3FFU) : c);
        DWORD written = 0;
        if (text.size() < kMost && at < bytes.size()) continue;
        if (WriteConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) == 0)
            return false;
        text.clear();
    }
    return true;
}

// Returns 0 or an `errno`.
int writeBytes(StandardStream::Kind kind, std::string_view bytes) {
    const HANDLE handle = handleOf(kind);
    if (isConsole(handle)) return writeConsole(handle, bytes) ? 0 : EIO;
    while (!bytes.empty()) {
        DWORD written = 0;
        if (WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0) {
            switch (GetLastError()) {
                case ERROR_BROKEN_PIPE:
                case ERROR_NO_DATA:
                case ERROR_PIPE_NOT_CONNECTED:
                    return EPIPE;
                case ERROR_DISK_FULL:
                case ERROR_HANDLE_DISK_FULL:
                    return ENOSPC;
                default:
                    return EIO;
            }
        }
        bytes.remove_prefix(written);
    }
    return 0;
}

// Returns 0 or an `errno`; no bytes at the end.
int readBytes(std::span<char> place, std::size_t& length) {
    DWORD read = 0;
    const auto most = static_cast<DWORD>(place.size());
    const bool done = ReadFile(GetStdHandle(STD_INPUT_HANDLE), place.data(), most, &read, nullptr) != 0;
    length = read;
    return done || GetLastError() == ERROR_BROKEN_PIPE ? 0 : EIO;
}

// Windows 10 shows colours once it is asked to, older consoles refuse.
bool isColourTerminal(StandardStream::Kind kind) {
    constexpr DWORD kVirtualTerminal = 4;
    DWORD mode = 0;
    const HANDLE handle = handleOf(kind);
    return GetConsoleMode(handle, &mode) != 0 && SetConsoleMode(handle, mode | kVirtualTerminal) != 0;
}

void ignoreClosedPipes() {}

#else

int numberOf(StandardStream::Kind kind) {
    return kind == StandardStream::Kind::Output ? STDOUT_FILENO : STDERR_FILENO;
}

// Returns 0 or an `errno`.
int writeBytes(StandardStream::Kind kind, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(numberOf(kind), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

// Returns 0 or an `errno`; no bytes at the end.
int readBytes(std::span<char> place, std::size_t& length) {
    ssize_t read = -1;
    do read = ::read(STDIN_FILENO, place.data(), place.size());
    while (read < 0 && errno == EINTR);
    length = static_cast<std::size_t>(std::max<ssize_t>(read, 0));
    return read < 0 ? errno : 0;
}

bool isColourTerminal(StandardStream::Kind kind) {
    const char* terminal = std::getenv("TERM");
    return isatty(numberOf(kind)) != 0 && terminal != nullptr && std::string_view(terminal) != "dumb";
}

void ignoreClosedPipes() {
    std::signal(SIGPIPE, SIG_IGN);
}

#endif

}  // namespace

StandardStream::StandardStream(Kind kind) : kind_(kind) {
    ignoreClosedPipes();
}

void StandardStream::write(std::string_view bytes) {
    waiting_ += bytes;
    if (kind_ == Kind::Error || waiting_.size() >= kPiece) flush();
}

void StandardStream::flush() {
    const std::string bytes = std::exchange(waiting_, {});
    if (closed_) return;
    const int error = writeBytes(kind_, bytes);
    if (error == 0) return;
    closed_ = true;
    if (kind_ == Kind::Error || error == EPIPE) return;
    try {
        throwFileError(error);
    } catch (const RuntimeError& failure) {
        throw failure.with("standard output");
    }
}

bool StandardStream::showsColours() const {
    const char* forbidden = std::getenv("NO_COLOR");
    return (forbidden == nullptr || *forbidden == '\0') && isColourTerminal(kind_);
}

std::string readStandardInput() {
    std::string bytes;
    std::array<char, kPiece> piece{};
    while (bytes.size() <= kLargestFile) {
        std::size_t length = 0;
        if (const int error = readBytes(piece, length); error != 0) throwFileError(error);
        if (length == 0) return bytes;
        bytes.append(piece.data(), length);
    }
    throw RuntimeError(ErrorNumber::OutOfMemory);
}

}  // namespace trevandix
