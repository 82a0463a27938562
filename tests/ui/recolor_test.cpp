// Only the three reserved colours follow the system, and only 120 dots per inch is large.
#include "ui/recolor.h"

#include <gtest/gtest.h>

TEST(Recolor, OnlyExactReservedColoursAreReplaced) {
    const SkinColors colors = {0x102030, 0x405060, 0x708090};
    EXPECT_EQ(RecolorEntry(0xC0C0C0, colors), 0x102030u);
    EXPECT_EQ(RecolorEntry(0xFFFFFF, colors), 0x405060u);
    EXPECT_EQ(RecolorEntry(0x808080, colors), 0x708090u);
    for (uint32_t other : {0xC0C0C1u, 0xFFFFFEu, 0x000000u, 0x808081u, 0xC080FFu}) {
        EXPECT_EQ(RecolorEntry(other, colors), other);
    }
}

TEST(SkinSet, MixedResolutionsKeepTheSetInUse) {
    for (int present : {0, 1}) {
        EXPECT_EQ(ChooseSkinSet(120, 120, present), 1);
        EXPECT_EQ(ChooseSkinSet(96, 120, present), 0);
        EXPECT_EQ(ChooseSkinSet(144, 144, present), 0);
        EXPECT_EQ(ChooseSkinSet(120, 96, present), present);
    }
}
