#pragma once

#include <set>
#include <string>
#include <string_view>

namespace trevandix {

/// Gives captions access keys that do not clash within one form. Keys are A to Z and 0 to 9.
class AccessKeys {
public:
    /// Reserves the key that a caption marks with "&" itself.
    void reserve(std::string_view caption);
    /// The caption with a free letter marked, of the words' first letters if one is free; as it is when it
    /// has a mark already or none is free. `previous` is the key that the control gives back, 0 for none.
    std::string marked(std::string_view caption, char previous = 0);

    /// The letter behind "&", in upper case; 0 without. "&&" is no mark but a sign.
    static char keyOf(std::string_view caption);

private:
    std::set<char> used_;
};

}  // namespace trevandix
