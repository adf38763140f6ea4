#pragma once

#include <vector>

namespace trevandix {

/// Parts of a whole, such as the columns of a list, that keep their shares while the whole changes its size.
class Proportions {
public:
    /// Remembers the parts in a whole of this size, all in one unit. A whole without size is not remembered.
    void keep(const std::vector<int>& parts, int whole);
    /// The parts for a whole of another size; empty before anything was kept. Computed from what was kept, so
    /// that nothing drifts however often the size changes.
    std::vector<int> scaled(int whole) const;

private:
    std::vector<double> shares_;
};

/// Parts that are below their least grow to it. What they thereby take beyond the whole, the others give up
/// from what they have above their least, so that the parts fill the whole where they did and can. A whole
/// that the parts exceeded before stays exceeded by as much.
std::vector<int> widened(std::vector<int> parts, const std::vector<int>& least, int whole);

/// Parts that together exceed the whole: the largest give way, all to one size, until the whole is filled.
std::vector<int> capped(std::vector<int> parts, int whole);

}  // namespace trevandix
