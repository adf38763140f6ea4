#pragma once

#include <string>

#include "platform/ByteSink.h"

namespace trevandix {

/// Standard output or standard error. Text is UTF-8 on every system, also in a Windows console. Not for use
/// together with other ways to write there.
class StandardStream : public ByteSink {
public:
    enum class Kind { Output, Error };
    explicit StandardStream(Kind kind);

    /// Collects bytes; standard error gets them at once. Errors: as of `flush`.
    void write(std::string_view bytes) override;
    /// Errors: those of `throwFileError`, for standard output only: nobody could be told of others. What a
    /// pipe no longer takes is dropped: its reader has seen enough.
    void flush();
    /// True on a terminal that shows colours, unless the environment variable NO_COLOR forbids them.
    bool showsColours() const;

private:
    Kind kind_;
    bool closed_ = false;
    std::string waiting_;
};

/// All bytes of standard input as they are. Errors: those of `throwFileError`; OutOfMemory for more than
/// kLargestFile bytes.
std::string readStandardInput();

}  // namespace trevandix
