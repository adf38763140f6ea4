#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace trevandix {

/// Appends UTF-8 `text` as ISO-8859-1. A character that has no single byte there becomes a numeric character
/// reference, the one form in which nothing is lost.
void appendLatin1(std::string& out, std::string_view text);

/// A text file of ISO-8859-1 lines that end with CR LF. Opened for appending, written in large pieces.
/// Errors of all operations: PathFileAccess, PermissionDenied, FileNotFound, DiskFull.
class Latin1File {
public:
    explicit Latin1File(const std::string& filePath);
    ~Latin1File();
    Latin1File(const Latin1File&) = delete;
    Latin1File& operator=(const Latin1File&) = delete;

    /// One line, or several joined by CR LF.
    void print(std::string_view line);
    /// The same of what `append` appends to a string, without a copy.
    template <typename Append>
    void printWith(Append append) {
        const std::size_t start = buffer_.size();
        append(buffer_);
        endLine(start);
    }
    /// Lets the disk begin with what has been written so far, so that the wait of `sync` is short.
    void beginSync();
    /// Writes what is left and returns when all of it is on the disk.
    void sync();
    /// Writes what is left. Without it the file is left as far as it got.
    void close();

private:
    /// Converts what was appended from `start` on, as UTF-8, and ends its line.
    void endLine(std::size_t start);
    void flush();

    std::FILE* file_;
    std::string buffer_;
};

bool fileExists(const std::string& filePath);

}  // namespace trevandix
