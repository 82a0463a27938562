// Sectors and the three time formats: rounding, the lead-in, empty tracks, lengths beyond a byte.
#include "demo/drive/disc_layout.h"

#include <gtest/gtest.h>

using enum TimeFormat;

static uint32_t Packed(uint32_t a, uint32_t b, uint32_t c, uint32_t d = 0) {
    return a | b << 8 | c << 16 | d << 24;
}

// 10 s, nothing, 1 min 0 s 74 f, 2 s.
static DiscLayout SmallDisc() {
    return {{{0, 750, true}, {750, 0, true}, {750, 4574, true}, {5324, 150, true}}, 5474};
}

TEST(DiscLayout, PositionsComeBackToTheSameSectorInEveryFormat) {
    const DiscLayout disc = SmallDisc();
    for (const TimeFormat format : {kMilliseconds, kMsf, kTmsf}) {
        for (uint32_t sector = 0; sector <= disc.sectors; ++sector) {
            uint32_t back = 0xFFFFFFFF;
            ASSERT_TRUE(UnpackPosition(disc, PackPosition(disc, sector, format), format, back));
            ASSERT_EQ(back, sector) << "format " << static_cast<int>(format);
        }
    }
}

TEST(DiscLayout, PlacesOffTheDiscAreRefusedAndChangeNothing) {
    const DiscLayout disc = SmallDisc();
    const struct {
        TimeFormat format;
        uint32_t packed;
        bool isOnDisc;
    } cases[] = {
        {kTmsf, Packed(0, 0, 0, 0), false},     {kTmsf, Packed(5, 0, 0, 0), false},
        {kTmsf, Packed(1, 0, 60, 0), false},    {kTmsf, Packed(1, 0, 0, 75), false},
        {kTmsf, Packed(4, 0, 2, 0), true},      {kTmsf, Packed(4, 0, 2, 1), false},
        {kTmsf, Packed(2, 0, 0, 0), true},      {kTmsf, Packed(1, 1, 0, 0), true},
        {kTmsf, Packed(1, 255, 59, 74), false}, {kMsf, Packed(0, 1, 74), false},
        {kMsf, Packed(1, 14, 74), true},        {kMsf, Packed(1, 15, 0), false},
        {kMilliseconds, 1999, false},           {kMilliseconds, 2000, true},
        {kMilliseconds, 0xFFFFFFFF, false},
    };
    for (const auto& c : cases) {
        uint32_t sector = 4711;
        EXPECT_EQ(UnpackPosition(disc, c.packed, c.format, sector), c.isOnDisc)
            << "format " << static_cast<int>(c.format) << " value " << std::hex << c.packed;
        EXPECT_EQ(sector == 4711, !c.isOnDisc);
    }
}

TEST(DiscLayout, LengthsBeyond255MinutesStayAtTheLargestThatFits) {
    const uint32_t longest = (256 * 60) * kSectorsPerSecond - 1;
    for (const uint32_t length : {longest, longest + 1, 199U * 4000 * 60 * kSectorsPerSecond})
        EXPECT_EQ(PackLength(length, kMsf), Packed(255, 59, 74)) << length;
}
