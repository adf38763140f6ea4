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

TEST(Proportions, PartsBelowTheirLeastGrowAtTheCostOfThoseThatCanSpare) {
    using Parts = std::vector<int>;
    EXPECT_EQ(widened({200, 100, 100, 100}, {90, 90, 90, 140}, 500), (Parts{166, 97, 97, 140}));
    EXPECT_EQ(widened({50, 50}, {80, 80}, 100), (Parts{80, 80}));                  // no room for all
    EXPECT_EQ(widened({400, 400, 10}, {60, 60, 60}, 500), (Parts{375, 375, 60}));  // scrolled before as well
    EXPECT_EQ(widened({200, 100}, {90, 90}, 1000), (Parts{200, 100}));
    EXPECT_EQ(widened({}, {}, 100), Parts{});
    for (int whole = 1; whole < 2000; ++whole) {
        const Parts least{60, 30, 90};
        const Parts parts = widened({whole / 2, whole / 4, whole - whole / 2 - whole / 4}, least, whole);
        for (std::size_t i = 0; i < parts.size(); ++i) EXPECT_GE(parts[i], least[i]) << whole;
        EXPECT_EQ(std::accumulate(parts.begin(), parts.end(), 0), std::max(whole, 180));
    }
}

TEST(Proportions, TheLargestPartsGiveWay) {
    using Parts = std::vector<int>;
    EXPECT_EQ(capped({120, 40, 900}, 600), (Parts{120, 40, 440}));
    EXPECT_EQ(capped({500, 40, 900}, 600), (Parts{280, 40, 280}));
    EXPECT_EQ(capped({120, 40, 440}, 600), (Parts{120, 40, 440}));
    EXPECT_EQ(capped({}, 600), Parts{});
}

}  // namespace trevandix::testing
