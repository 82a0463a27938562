// Scroll units and milliseconds: both sides of a second, rounding and the ends.
#include "playback/scroll_scale.h"

#include <gtest/gtest.h>

#include <climits>

TEST(ScrollScale, LengthsOfASecondAndOfOneMillisecondMore) {
    EXPECT_EQ(ScaleForLength(1000).range, 1000);
    EXPECT_FLOAT_EQ(ScaleForLength(1000).scale, 1.0f);
    EXPECT_EQ(ScaleForLength(1001).range, 1000);
    EXPECT_FLOAT_EQ(ScaleForLength(1001).scale, 1.001f);
    EXPECT_EQ(ScaleForLength(7).range, 7);
    EXPECT_EQ(ScaleForLength(0).range, 0);
    EXPECT_EQ(ScaleForLength(-5).range, 0);
}

TEST(ScrollScale, PositionsStayInsideTheFile) {
    for (int32_t length : {0, 1, 999, 1000, 1001, 1005, 83456, 16777217, INT_MAX}) {
        const ScrollScale scale = ScaleForLength(length);
        EXPECT_EQ(ScrollToMilliseconds(0, length, scale), 0);
        EXPECT_LE(ScrollToMilliseconds(scale.range, length, scale), length);
        EXPECT_GE(ScrollToMilliseconds(scale.range, length, scale), length - length / 1000);
        EXPECT_LE(ScrollToMilliseconds(65535, length, scale), length);
        EXPECT_EQ(ScrollToMilliseconds(-1, length, scale), 0);
        EXPECT_LE(MillisecondsToScroll(length, scale), scale.range);
    }
    EXPECT_EQ(ScrollToMilliseconds(500, 83456, ScaleForLength(83456)), 41728);
}

TEST(ScrollScale, ThumbIsTruncatedAndSaturates) {
    EXPECT_EQ(MillisecondsToScroll(41727, ScaleForLength(83456)), 499);
    EXPECT_EQ(MillisecondsToScroll(1ll << 40, ScaleForLength(5)), 65535);
    EXPECT_EQ(MillisecondsToScroll(-7, ScaleForLength(5)), 0);
    EXPECT_EQ(MillisecondsToScroll(7, ScrollScale{}), 0);
}

TEST(ScrollScale, MovesStopAtTheEnds) {
    EXPECT_EQ(MoveScroll(5, -10, 1000), 0);
    EXPECT_EQ(MoveScroll(995, 10, 1000), 1000);
    EXPECT_EQ(MoveScroll(3, 1, 0), 0);
    EXPECT_EQ(MoveScroll(0, 1, -1), 0);
}
