// Where code places things when the window grows less than the resolution does.
#include "base/scale.h"

#include <gtest/gtest.h>

TEST(Scale, PositionsStayInAWindowThatDoesNotGrowWithTheResolution) {
    const struct {
        int dpi, unitsWidth, unitsHeight;
        float horizontal, vertical;  // times 96
    } cases[] = {{96, 6, 13, 96, 96},    {96, 5, 12, 96, 96},    {120, 8, 16, 128, 118},
                 {144, 9, 20, 152, 142}, {192, 9, 20, 152, 147}, {192, 12, 26, 200, 190}};
    for (const auto& c : cases) {
        const ScaleFactors factors = ScaleForResolution(c.dpi, c.dpi, c.unitsWidth, c.unitsHeight);
        EXPECT_EQ(factors.horizontal, c.horizontal / 96) << c.dpi << " " << c.unitsWidth;
        EXPECT_EQ(factors.vertical, c.vertical / 96) << c.dpi << " " << c.unitsHeight;
    }
}
