#pragma once

#include <string_view>

namespace trevandix {

/// Where bytes are written to.
class ByteSink {
public:
    virtual ~ByteSink() = default;
    /// Errors: as of the sink.
    virtual void write(std::string_view bytes) = 0;
};

}  // namespace trevandix
