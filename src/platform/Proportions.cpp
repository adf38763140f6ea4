#include "platform/Proportions.h"

#include <cmath>

namespace trevandix {

void Proportions::keep(const std::vector<int>& parts, int whole) {
    if (whole <= 0) return;
    shares_.clear();
    for (const int part : parts) shares_.push_back(double(part) / whole);
}

// The edges between the parts are rounded, not the parts, so that their sum is right too.
std::vector<int> Proportions::scaled(int whole) const {
    std::vector<int> parts;
    double edge = 0;
    long before = 0;
    for (const double share : shares_) {
        edge += share * whole;
        const long rounded = std::lround(edge);
        parts.push_back(static_cast<int>(rounded - before));
        before = rounded;
    }
    return parts;
}

}  // namespace trevandix
