// Positions at 96 dots per inch on screens of other resolutions.
#include "base/scale.h"

#include <gtest/gtest.h>

TEST(Scale, ScrollBarOfEachModeAtEachResolution) {
    const struct {
        int dpi;
        int cdX, cdY, fileX, fileY;
    } cases[] = {
        {72, 70, 220, 129, 51},
        {96, 70, 220, 129, 51},
        {120, 93, 270, 172, 62},
        {144, 110, 325, 204, 75},
    };
    for (const auto& c : cases) {
        const ScaleFactors factors = ScaleForResolution(c.dpi, c.dpi);
        EXPECT_EQ(ScalePosition(70, factors.horizontal), c.cdX) << c.dpi;
        EXPECT_EQ(ScalePosition(220, factors.vertical), c.cdY) << c.dpi;
        EXPECT_EQ(ScalePosition(129, factors.horizontal), c.fileX) << c.dpi;
        EXPECT_EQ(ScalePosition(51, factors.vertical), c.fileY) << c.dpi;
    }
}
