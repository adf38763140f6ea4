#include "xmlfile/Latin1File.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <system_error>

#include "platform/FileAccess.h"
#include "platform/FileSafety.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 19;

}  // namespace

void appendLatin1(std::string& out, std::string_view text) {
    if (isAscii(text)) {
        out += text;
        return;
    }
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextCodePoint(text, at);
        if (c <= 0xFF) {
            out += static_cast<char>(static_cast<unsigned char>(c));
            continue;
        }
        std::array<char, 8> digits;
        const auto [end, error] =
            std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<unsigned>(c), 16);
        out.append("&#x").append(upperCased(std::string_view(digits.data(), end))) += ';';
    }
}

Latin1File::Latin1File(const std::string& filePath) : file_(openFile(filePath, "ab")) {
    std::setvbuf(file_, nullptr, _IONBF, 0);
    buffer_.reserve(kPiece + 4096);
}

Latin1File::~Latin1File() {
    if (file_ == nullptr) return;
    std::fwrite(buffer_.data(), 1, buffer_.size(), file_);  // a failure is on its way to the user already
    std::fclose(file_);
}

void Latin1File::print(std::string_view line) {
    printWith([&](std::string& out) { out += line; });
}

void Latin1File::endLine(std::size_t start) {
    if (const auto added = std::string_view(buffer_).substr(start); !isAscii(added)) {
        std::string latin1;
        appendLatin1(latin1, added);
        buffer_.replace(start, std::string::npos, latin1);
    }
    buffer_ += "\r\n";
    if (buffer_.size() >= kPiece) flush();
}

void Latin1File::flush() {
    errno = 0;
    const std::size_t written = std::fwrite(buffer_.data(), 1, buffer_.size(), file_);
    if (written != buffer_.size()) {
        const int error = errno;
        buffer_.clear();
        throwFileError(error);
    }
    buffer_.clear();
}

void Latin1File::beginSync() {
    trevandix::beginSync(file_);
}

void Latin1File::sync() {
    flush();
    syncFile(file_);
}

void Latin1File::close() {
    flush();
    std::FILE* file = file_;
    file_ = nullptr;
    errno = 0;
    if (std::fclose(file) != 0) throwFileError(errno);
}

bool fileExists(const std::string& filePath) {
    std::error_code ignored;
    return std::filesystem::exists(fromUtf8(filePath), ignored);
}

}  // namespace trevandix
