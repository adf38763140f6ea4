#include "platform/Proportions.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace trevandix {

void Proportions::keep(const std::vector<int>& parts, int whole) {
    if (whole <= 0) return;
    shares_.clear();
    for (const int part : parts) shares_.push_back(double(part) / whole);
}

// Rounds the edges between the parts instead of the parts, so that the sum is right.
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

std::vector<int> widened(std::vector<int> parts, const std::vector<int>& least, int whole) {
    const int before = std::accumulate(parts.begin(), parts.end(), 0);
    long spare = 0;
    for (std::size_t i = 0; i < std::min(parts.size(), least.size()); ++i) {
        parts[i] = std::max(parts[i], least[i]);
        spare += parts[i] - least[i];
    }
    long over = std::accumulate(parts.begin(), parts.end(), 0) - std::max(before, whole);
    over = std::clamp(over, 0L, spare);
    for (std::size_t i = 0; i < std::min(parts.size(), least.size()) && spare > 0; ++i) {
        const long own = parts[i] - least[i];
        const long given =
            (over * own + spare - 1) / spare;  // rounded up, so that nothing is left over for the last part
        parts[i] -= static_cast<int>(std::min({given, own, over}));
        over -= std::min({given, own, over});
        spare -= own;
    }
    return parts;
}

std::vector<int> capped(std::vector<int> parts, int whole) {
    std::vector<int> ascending = parts;
    std::ranges::sort(ascending);
    int rest = whole;
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        const int share = rest / static_cast<int>(ascending.size() - i);
        if (ascending[i] > share) {
            for (int& part : parts) part = std::min(part, share);
            break;
        }
        rest -= ascending[i];
    }
    return parts;
}

}  // namespace trevandix
