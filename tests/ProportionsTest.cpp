// What keeps sash and columns in proportion when a window is resized.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "platform/Proportions.h"

namespace trevandix::testing {

TEST(Proportions, SharesStayFromSmallToLargeAndBack) {
    const std::vector<int> parts{391, 97, 203, 309};  // of 1000: a whole that they fill
    Proportions proportions;
    EXPECT_TRUE(proportions.scaled(640).empty());
    proportions.keep(parts, 1000);
    for (int whole = 1; whole < 3840; ++whole) {
        const std::vector<int> scaled = proportions.scaled(whole);
        ASSERT_EQ(scaled.size(), parts.size());
        EXPECT_EQ(std::accumulate(scaled.begin(), scaled.end(), 0), whole);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            EXPECT_LE(std::abs(scaled[i] - parts[i] * whole / 1000.0), 1.0) << whole;
        }
    }
    EXPECT_EQ(proportions.scaled(1000), parts);
    proportions.keep({500}, 0);  // a window that is not laid out yet
    EXPECT_EQ(proportions.scaled(1000), parts);
}

}  // namespace trevandix::testing
