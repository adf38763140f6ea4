// Tests how sash and columns keep their proportions when a window is resized.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "platform/Proportions.h"

namespace trevandix::testing {

using Parts = std::vector<int>;

TEST(Proportions, SharesSurviveResizing) {
    const Parts parts{391, 97, 203, 309};  // add up to 1000
    const Parts least{60, 30, 90, 10};
    Proportions proportions;
    EXPECT_TRUE(proportions.scaled(640).empty());
    proportions.keep(parts, 1000);
    for (int whole = 1; whole < 3840; ++whole) {
        const Parts scaled = proportions.scaled(whole);
        const Parts wide = widened(scaled, least, whole);
        EXPECT_EQ(std::accumulate(scaled.begin(), scaled.end(), 0), whole);
        EXPECT_EQ(std::accumulate(wide.begin(), wide.end(), 0), std::max(whole, 190));
        for (std::size_t i = 0; i < parts.size(); ++i) {
            EXPECT_LE(std::abs(scaled.at(i) - parts[i] * whole / 1000.0), 1.0) << whole;
            EXPECT_GE(wide[i], least[i]) << whole;
        }
    }
    EXPECT_EQ(proportions.scaled(1000), parts);
    proportions.keep({500}, 0);  // the window is not laid out yet
    EXPECT_EQ(proportions.scaled(1000), parts);
}

TEST(Proportions, LargestPartsShrinkFirst) {
    EXPECT_EQ(widened({200, 100, 100, 100}, {90, 90, 90, 140}, 500), (Parts{166, 97, 97, 140}));
    EXPECT_EQ(widened({400, 400, 10}, {60, 60, 60}, 500), (Parts{375, 375, 60}));  // was too wide before
    EXPECT_EQ(widened({200, 100}, {90, 90}, 1000), (Parts{200, 100}));
    EXPECT_EQ(capped({120, 40, 900}, 600), (Parts{120, 40, 440}));
    EXPECT_EQ(capped({500, 40, 900}, 600), (Parts{280, 40, 280}));
    EXPECT_EQ(capped({120, 40, 440}, 600), (Parts{120, 40, 440}));
    EXPECT_TRUE(widened({}, {}, 100).empty() && capped({}, 600).empty());
}

}  // namespace trevandix::testing
