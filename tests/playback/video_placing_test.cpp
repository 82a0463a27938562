// Films that just fit and just do not, in the frame and in a window of their own.
#include "playback/video_placing.h"

#include <gtest/gtest.h>

#include <climits>

TEST(VideoPlacing, SizesAreTakenByTheirAmountUpToALimit) {
    const struct {
        int32_t width;
        int32_t height;
        bool taken;
    } cases[] = {
        {320, 240, true},          {320, -240, true},   {1, 1, true},       {-16384, 1, true},
        {0, 240, false},           {320, 0, false},     {16385, 10, false}, {10, -16385, false},
        {INT_MIN, INT_MIN, false}, {1, INT_MAX, false},
    };
    for (const auto& c : cases) {
        VideoSize size = {-1, -1};
        EXPECT_EQ(TakeVideoSize(c.width, c.height, size), c.taken) << c.width << " " << c.height;
        EXPECT_EQ(size.width, c.taken ? std::abs(c.width) : -1);
        EXPECT_EQ(size.height, c.taken ? std::abs(c.height) : -1);
    }
}

TEST(VideoPlacing, TheFrameTakesWhatIsNotLarger) {
    const VideoSize frame = {222, 185};
    EXPECT_TRUE(FitsFrame({222, 185}, frame));
    EXPECT_FALSE(FitsFrame({223, 185}, frame));
    EXPECT_FALSE(FitsFrame({222, 186}, frame));

    const VideoPlace whole = PlaceInFrame(339, 89, frame, frame);
    EXPECT_EQ(whole.x, 337);
    EXPECT_EQ(whole.y, 88);
    const VideoPlace odd = PlaceInFrame(339, 89, frame, {221, 180});
    EXPECT_EQ(odd.x, 337);
    EXPECT_EQ(odd.y, 90);
    EXPECT_EQ(odd.size.width, 221);
    EXPECT_EQ(odd.size.height, 180);
}

TEST(VideoPlacing, TheWindowGrowsWithItsFilmUpToTheWorkArea) {
    // Borders of 3 pixels, a caption of 19; 70 pixels of controls.
    const VideoWindowShape shape = {{456, 200}, {450, 175}, 92, 22};
    const VideoSize screen = {1024, 740};

    const VideoWindowPlaces small = PlaceInWindow(shape, screen, {200, 50});
    EXPECT_EQ(small.window.width, 456);
    EXPECT_EQ(small.window.height, 200);
    EXPECT_EQ(small.video.x, (450 - 200) / 2);
    EXPECT_EQ(small.video.y, 70 + (105 - 58) / 2 + 4);

    const VideoWindowPlaces large = PlaceInWindow(shape, screen, {640, 480});
    EXPECT_EQ(large.window.width, 663);
    EXPECT_EQ(large.window.height, 92 + 15 + 480);
    EXPECT_EQ(large.frame.x, 4);
    EXPECT_EQ(large.frame.y, 72) << "below the line";
    EXPECT_EQ(large.frame.size.width, 648);
    EXPECT_EQ(large.frame.size.height, 488);
    EXPECT_EQ(large.video.x, 8);
    EXPECT_EQ(large.video.y, 76);

    const VideoWindowPlaces huge = PlaceInWindow(shape, screen, {1920, 1080});
    EXPECT_EQ(huge.window.width, 1024);
    EXPECT_EQ(huge.window.height, 740);
    EXPECT_EQ(huge.video.size.width, 1920);
    EXPECT_EQ(huge.video.size.height, 1080);
    EXPECT_EQ(huge.video.x, (1018 - 1920) / 2);
    EXPECT_EQ(huge.video.y, 76) << "the controls stay free";
}
