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
    EXPECT_EQ(SecondsIntoTrack(position), 12 * 60 + 59);
    EXPECT_EQ(UnpackLengthSeconds(0xFF4A3BFF), 255 * 60 + 59) << "frames are dropped, not rounded";
}

TEST(DiscTimes, TextPadsSecondsOnly) {
    EXPECT_EQ(MinutesSecondsText(9), "0:09");
    EXPECT_EQ(MinutesSecondsText(754), "12:34");
    EXPECT_EQ(MinutesSecondsText(65535), "1092:15");
}

TEST(DiscTimes, ReadoutsAddEarlierTracksAndWrapAtSixteenBits) {
    const DiscToc toc = DiscOf({100, 200, 300});
    DiscReadouts at = ReadoutsAt(toc, 3, 20);
    EXPECT_EQ(at.time, 20);
    EXPECT_EQ(at.remaining, 280);
    EXPECT_EQ(at.totalPlaying, 320);
    EXPECT_EQ(at.totalRemaining, 280);
    EXPECT_EQ(ReadoutsAt(toc, 1, 101).remaining, 65535) << "beyond the rounded-down length";

    at = ReadoutsAt(DiscOf({15555, 15555, 15555, 15555, 15555}), 5, 15555);
    EXPECT_EQ(at.totalPlaying, 77775 - 65536);
    EXPECT_EQ(at.totalRemaining, 0);

    EXPECT_EQ(ReadoutsAt(toc, 255, 7).totalPlaying, 607) << "a track beyond the disc has no length";
    EXPECT_EQ(TrackLengthSeconds(toc, 0), 0);
    DiscToc overcounted = toc;
    overcounted.trackCount = 500;
    EXPECT_EQ(TrackLengthSeconds(overcounted, 100), 0);
}

TEST(DiscTimes, PagesOfFifteen) {
    const struct {
        int track, pages, button;
    } cases[] = {{0, 0, 14}, {1, 1, 0}, {15, 1, 14}, {16, 2, 0}, {30, 2, 14}, {99, 7, 8}};
    for (const auto& c : cases) {
        EXPECT_EQ(PageCount(c.track), c.pages) << c.track << " tracks";
        EXPECT_EQ(HighlightedButton(c.track), c.button) << "track " << c.track;
    }
    const struct {
        int page, pages, before, after;
    } turns[] = {{0, 7, 6, 1}, {6, 7, 5, 0}, {0, 1, 0, 0}, {0, 0, 0, 0}};
    for (const auto& turn : turns) {
        EXPECT_EQ(PageBefore(turn.page, turn.pages), turn.before) << turn.page;
        EXPECT_EQ(PageAfter(turn.page, turn.pages), turn.after) << turn.page;
    }
}

TEST(DiscTimes, SkipsWrapAndSkipBackRestartsAfterTwoSeconds) {
    const struct {
        int current, tracks, elapsed, back, forward;
    } cases[] = {
        {5, 12, 3, 5, 6},  {5, 12, 2, 4, 6},   {1, 12, 2, 12, 2},  {12, 12, 3, 12, 1},
        {0, 12, 9, 12, 1}, {20, 12, 9, 12, 1}, {20, 12, 0, 12, 1}, {5, 0, 9, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.current) + " of " + std::to_string(c.tracks));
        EXPECT_EQ(SkipBackTarget(c.current, c.tracks, c.elapsed), c.back) << c.elapsed << " s";
        EXPECT_EQ(SkipForwardTarget(c.current, c.tracks), c.forward);
    }
}
