#pragma once

#include <string>
#include <string_view>

namespace trevandix {

/// One of the few texts that very many records share (type labels, access rights): a pointer into a pool that
/// lives as long as the program.
class InternedText {
public:
    InternedText();
    explicit InternedText(std::string_view text);
    const std::string& str() const { return *text_; }

private:
    const std::string* text_;
};

}  // namespace trevandix
