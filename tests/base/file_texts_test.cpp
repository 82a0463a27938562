// Sizes beyond 32 bits, and the clock that is six hours off on purpose.
#include "base/file_texts.h"

#include <gtest/gtest.h>

TEST(FileTexts, SizesKeepEveryDigit) {
    EXPECT_EQ(SizeText(UINT64_MAX), "18446744073709551615 bytes ");
}

TEST(FileTexts, DatesAndShiftedHours) {
    const auto packDate = [](int year, int month, int day) {
        return static_cast<uint16_t>((year - 1980) << 9 | month << 5 | day);
    };
    const auto packTime = [](int hour, int minute) {
        return static_cast<uint16_t>(hour << 11 | minute << 5 | 29);
    };
    const struct {
        int hour, minute;
        const char* text;
    } hours[] = {
        {0, 0, "3-7-1995 6:00PM"},   {5, 59, "3-7-1995 11:59PM"},  {6, 5, "3-7-1995 12:05AM"},
        {7, 9, "3-7-1995 1:09AM"},   {17, 10, "3-7-1995 11:10AM"}, {18, 40, "3-7-1995 12:40PM"},
        {23, 59, "3-7-1995 5:59PM"},
    };
    for (const auto& c : hours)
        EXPECT_EQ(DateText(packDate(1995, 3, 7), packTime(c.hour, c.minute)), c.text);
    EXPECT_EQ(DateText(packDate(2107, 12, 31), packTime(6, 0)), "12-31-2107 12:00AM");
}

TEST(FileTexts, PercentOfAnyLength) {
    EXPECT_EQ(PercentText(0, 3), "0%");
    EXPECT_EQ(PercentText(2, 3), "66%");
    EXPECT_EQ(PercentText(9'999'999'999, 10'000'000'000), "99%");
    EXPECT_EQ(PercentText(30, 20), "150%");  // the file grew
    EXPECT_EQ(PercentText(0, 0), "100%");
    EXPECT_EQ(PercentText(UINT64_MAX, 1), "1000000000000000000%");
}
