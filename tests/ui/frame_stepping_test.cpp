// Frames wrap, and the sprite never leaves its strip.
#include "ui/frame_stepping.h"

#include <gtest/gtest.h>

TEST(FrameStepping, FramesWrapAtTheirCount) {
    EXPECT_EQ(NextFrame(0, 21), 1);
    EXPECT_EQ(NextFrame(20, 21), 0);
    EXPECT_EQ(NextFrame(0xFFFF, 4), 0);
    EXPECT_EQ(NextFrame(0, 1), 0);
}

TEST(FrameStepping, SpriteStopsAtEachBoundAndTurnsInTheSameStep) {
    SpriteState sprite = {10, 10, 17, true};
    const struct {
        int y;
        int frame;
    } path[] = {{13, 0}, {16, 0}, {17, 1}, {14, 1}, {11, 1}, {10, 0}, {13, 0}};
    for (const auto& step : path) {
        MoveSprite(sprite);
        EXPECT_EQ(sprite.y, step.y);
        EXPECT_EQ(SpriteFrame(sprite), step.frame);
    }
}

TEST(FrameStepping, HalfPixelsAreRoundedTowardsZero) {
    EXPECT_EQ(CenteredIn(100, 33, 32), 100);
    EXPECT_EQ(CenteredIn(100, 35, 32), 101);
    EXPECT_EQ(CenteredIn(100, 31, 32), 100);
    EXPECT_EQ(CenteredIn(100, 29, 32), 99);
}
