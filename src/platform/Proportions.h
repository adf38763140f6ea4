#pragma once

#include <vector>

namespace trevandix {

/// Parts of a whole, such as columns of a list, that keep their shares when the whole is resized.
class Proportions {
public:
    /// Remembers the parts of a whole, all in the same unit. Does nothing unless `whole` is positive.
    void keep(const std::vector<int>& parts, int whole);
    /// The parts for another size; empty before `keep`. Computed from the remembered shares, so repeated
    /// resizing does not drift.
    std::vector<int> scaled(int whole) const;

private:
    std::vector<double> shares_;
};

/// Enlarges parts below their minimum to it. If the parts then exceed the larger of the whole and their
/// former sum, the others shrink, each in proportion to what it has above its own minimum.
std::vector<int> widened(std::vector<int> parts, const std::vector<int>& least, int whole);

/// Shrinks parts whose sum exceeds the whole: the largest are cut to one common size that makes them fit.
std::vector<int> capped(std::vector<int> parts, int whole);

}  // namespace trevandix
