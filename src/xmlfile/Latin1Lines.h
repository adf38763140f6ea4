#pragma once

#include <string>
#include <string_view>

#include "platform/ByteSink.h"

namespace trevandix {

/// Appends UTF-8 `text` as ISO-8859-1. A character that has no single byte there becomes a numeric character
/// reference, the one form in which nothing is lost.
void appendLatin1(std::string& out, std::string_view text);

/// Writes ISO-8859-1 lines that end with CR LF. Errors: those of the sink.
class Latin1Lines {
public:
    explicit Latin1Lines(ByteSink& file) : file_(file) {}

    /// One line, or several joined by CR LF.
    void print(std::string_view line) {
        printWith([&](std::string& out) { out += line; });
    }
    /// The same of what `append` appends to a string, without a copy.
    template <typename Append>
    void printWith(Append append) {
        line_.clear();
        append(line_);
        endLine();
    }

private:
    /// Writes `line_`, which is UTF-8.
    void endLine();

    ByteSink& file_;
    std::string line_;
};

}  // namespace trevandix
