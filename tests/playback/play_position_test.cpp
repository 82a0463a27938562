// Read-outs in milliseconds at the edges of every field; scroll units at both sides of a second, at
// the ends, and where they are rounded.
#include "playback/play_position.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <tuple>
#include <utility>

TEST(PlayTime, FieldsAppearWithTheirFirstDigit) {
    const std::pair<int64_t, const char*> cases[] = {
        {-1, "0 Milliseconds"},         {999, "999 Milliseconds"},
        {1000, "1.000 Seconds"},        {59999, "59.999 Seconds"},
        {60000, "1:00.000 Minutes"},    {3599999, "59:59.999 Minutes"},
        {3600000, "1:00:00.000 Hours"}, {2147483647, "596:31:23.647 Hours"},
    };
    for (const auto& [milliseconds, text] : cases)
        EXPECT_EQ(PlayTimeText(milliseconds), text);
}

TEST(ScrollBar, MillisecondsBecomeUnitsAndStayInsideTheFile) {
    for (const int32_t milliseconds : {-5, 0, 7, 1000, 1001, 83456, 16777217, INT_MAX}) {
        SCOPED_TRACE(milliseconds);
        const PlayLength length = LengthInMilliseconds(milliseconds);
        const int32_t end = std::max(milliseconds, 0);
        EXPECT_EQ(length.range, std::min(end, 1000));
        EXPECT_EQ(ScrollToPosition(-1, length), 0);
        EXPECT_LE(ScrollToPosition(length.range, length), end);
        EXPECT_GE(ScrollToPosition(length.range, length), end - end / 1000);
        EXPECT_LE(ScrollToPosition(65535, length), end);
        EXPECT_LE(PositionToScroll(milliseconds, length), length.range);
        EXPECT_EQ(PositionToScroll(-7, length), 0);
    }
    EXPECT_EQ(ScrollToPosition(500, LengthInMilliseconds(83456)), 41728);
    EXPECT_EQ(PositionToScroll(41727, LengthInMilliseconds(83456)), 499) << "cut, not rounded";
    EXPECT_EQ(PositionToScroll(5, LengthInMilliseconds(7)), 5);
    EXPECT_EQ(PositionToScroll(1ll << 40, LengthInMilliseconds(5)), 65535);
    EXPECT_EQ(PositionToScroll(7, PlayLength{}), 0);
}

TEST(ScrollBar, FramesStandForThemselves) {
    const std::tuple<int32_t, const char*, int> cases[] = {
        {-5, "0 Frames", 0},
        {1, "1 Frame", 1},
        {65535, "65535 Frames", 65535},
        {65546, "65546 Frames", 10},
    };
    for (const auto& [frames, text, range] : cases) {
        const PlayLength length = LengthInFrames(frames);
        EXPECT_EQ(PositionText(frames, length.unit), text);
        EXPECT_EQ(length.range, range) << text;
        EXPECT_EQ(PositionToScroll(frames, length), range) << text;
    }
    // No conversion: 1,001 frames are not a thousand units.
    EXPECT_EQ(ScrollToPosition(999, LengthInFrames(1001)), 999);
    EXPECT_EQ(ScrollToPosition(1200, LengthInFrames(1001)), 1001);
    EXPECT_EQ(PositionToScroll(5, LengthInFrames(65536)), 0);
}

TEST(ScrollBar, MovesStopAtTheEnds) {
    EXPECT_EQ(MoveScroll(5, -10, 1000), 0);
    EXPECT_EQ(MoveScroll(995, 10, 1000), 1000);
    EXPECT_EQ(MoveScroll(0, 1, -1), 0);
}
