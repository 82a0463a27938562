// Faults in the disc arithmetic: swapped bytes, wrong wraps, off-by-one pages and skips.
#include "disc/disc_times.h"

#include <gtest/gtest.h>

static DiscToc DiscOf(std::initializer_list<uint16_t> lengths) {
    DiscToc toc;
    for (uint16_t length : lengths) {
        toc.lengthSeconds[toc.trackCount++] = length;
        toc.totalSeconds = static_cast<uint16_t>(toc.totalSeconds + length);
    }
    return toc;
}

TEST(DiscTimes, PackedNumbersKeepEachFieldInItsByte) {
    EXPECT_EQ(PackPosition(5, 12, 34, 30), 0x1E220C05u);
    const DiscPosition position = UnpackPosition(0x4A3B0C63);
    EXPECT_EQ(position.track, 99);
    EXPECT_EQ(position.minutes, 12);
    EXPECT_EQ(position.seconds, 59);
    EXPECT_EQ(SecondsIntoTrack(position), 779);
    EXPECT_EQ(UnpackLengthSeconds(0x004A0703), 187) << "74 frames are dropped, not rounded";
    EXPECT_EQ(UnpackLengthSeconds(0xFFFFFFFF), 15555);
}

TEST(DiscTimes, TextPadsSecondsOnly) {
    const struct {
        int seconds;
        const char* text;
    } cases[] = {{0, "0:00"},    {9, "0:09"},     {60, "1:00"},
                 {754, "12:34"}, {3661, "61:01"}, {65535, "1092:15"}};
    for (const auto& c : cases)
        EXPECT_EQ(MinutesSecondsText(c.seconds), c.text);
}

TEST(DiscTimes, ReadoutsAddEarlierTracksAndWrapAtSixteenBits) {
    const DiscToc toc = DiscOf({100, 200, 300});
    DiscReadouts at = ReadoutsAt(toc, 3, 20);
    EXPECT_EQ(at.time, 20);
    EXPECT_EQ(at.remaining, 280);
    EXPECT_EQ(at.totalPlaying, 320);
    EXPECT_EQ(at.totalRemaining, 280);

    at = ReadoutsAt(toc, 1, 101);
    EXPECT_EQ(at.remaining, 65535) << "one second beyond the rounded-down length";

    const DiscToc huge = DiscOf({15555, 15555, 15555, 15555, 15555});
    EXPECT_EQ(huge.totalSeconds, 77775 - 65536);
    at = ReadoutsAt(huge, 5, 15555);
    EXPECT_EQ(at.totalPlaying, 77775 - 65536);
    EXPECT_EQ(at.totalRemaining, 0);

    at = ReadoutsAt(toc, 255, 7);
    EXPECT_EQ(at.totalPlaying, 607) << "a track beyond the disc has no length of its own";
    EXPECT_EQ(TrackLengthSeconds(toc, 0), 0);
    EXPECT_EQ(TrackLengthSeconds(toc, 4), 0);
    DiscToc overcounted = toc;
    overcounted.trackCount = 500;
    EXPECT_EQ(TrackLengthSeconds(overcounted, 100), 0);
}

TEST(DiscTimes, PagesOfFifteen) {
    const struct {
        int tracks;
        int pages;
    } cases[] = {{0, 0}, {1, 1}, {15, 1}, {16, 2}, {30, 2}, {31, 3}, {99, 7}};
    for (const auto& c : cases)
        EXPECT_EQ(PageCount(c.tracks), c.pages) << c.tracks << " tracks";

    EXPECT_EQ(PageAfter(0, 7), 1);
    EXPECT_EQ(PageAfter(6, 7), 0);
    EXPECT_EQ(PageBefore(0, 7), 6);
    EXPECT_EQ(PageBefore(6, 7), 5);
    for (int pages : {0, 1}) {
        EXPECT_EQ(PageAfter(0, pages), 0);
        EXPECT_EQ(PageBefore(0, pages), 0);
    }
}

TEST(DiscTimes, HighlightIsTheTracksPlaceInItsPage) {
    const struct {
        int track;
        int button;
    } cases[] = {{1, 0}, {15, 14}, {16, 0}, {30, 14}, {91, 0}, {99, 8}, {0, 14}};
    for (const auto& c : cases)
        EXPECT_EQ(HighlightedButton(c.track), c.button) << c.track;
}

TEST(DiscTimes, SkipBackRestartsAfterTwoSecondsAndWrapsBefore) {
    const struct {
        int current, tracks, elapsed, target;
    } cases[] = {
        {5, 12, 3, 5},   {5, 12, 2, 4},  {1, 12, 2, 12},   {1, 12, 3, 1},
        {0, 12, 60, 12}, {0, 12, 0, 12}, {20, 12, 0, 12},  {20, 12, 9, 12},
        {1, 1, 0, 1},    {5, 0, 9, 0},   {12, 12, 62, 12},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SkipBackTarget(c.current, c.tracks, c.elapsed), c.target)
            << c.current << " of " << c.tracks << " after " << c.elapsed << " s";
    }
}

TEST(DiscTimes, SkipForwardWrapsAtTheEndAndBeyond) {
    EXPECT_EQ(SkipForwardTarget(11, 12), 12);
    EXPECT_EQ(SkipForwardTarget(12, 12), 1);
    EXPECT_EQ(SkipForwardTarget(40, 12), 1);
    EXPECT_EQ(SkipForwardTarget(0, 12), 1);
    EXPECT_EQ(SkipForwardTarget(1, 0), 0);
}

TEST(DiscTimes, ScrollMovesStayWithinTheTrack) {
    EXPECT_EQ(MovedPosition(100, -8, 200), 92);
    EXPECT_EQ(MovedPosition(3, -8, 200), 0);
    EXPECT_EQ(MovedPosition(195, 8, 200), 200);
    EXPECT_EQ(MovedPosition(0, 1, 0), 0) << "a track of length 0";
}
