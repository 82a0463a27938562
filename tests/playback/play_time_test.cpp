// Read-outs in milliseconds at the edges of every field.
#include "playback/play_time.h"

#include <gtest/gtest.h>

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
