// Read-outs in milliseconds at the edges of every field; scroll units at both sides of a second, at
// the ends, and where they are rounded.
#include "playback/play_position.h"

#include <gtest/gtest.h>

#include <climits>

TEST(PlayTime, FieldsAppearWithTheirFirstDigit) {
    const struct {
        int64_t milliseconds;
        const char* text;
    } cases[] = {
        {0, "0 Milliseconds"},
        {999, "999 Milliseconds"},
        {1000, "1.000 Seconds"},
        {5000, "5.000 Seconds"},
        {59999, "59.999 Seconds"},
        {60000, "1:00.000 Minutes"},
        {83456, "1:23.456 Minutes"},
        {600000, "10:00.000 Minutes"},
        {3599999, "59:59.999 Minutes"},
        {3600000, "1:00:00.000 Hours"},
        {36000000, "10:00:00.000 Hours"},
        {359999999, "99:59:59.999 Hours"},
        {2147483647, "596:31:23.647 Hours"},
        {-1, "0 Milliseconds"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(PlayTimeText(c.milliseconds), c.text);
}

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
