// Films that just fit and just do not, in the frame and in a window of their own.
#include "playback/video_placing.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

static std::vector<int> Numbers(const VideoPlace& place) {
    return {place.x, place.y, place.size.width, place.size.height};
}

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
    EXPECT_EQ(Numbers(PlaceInFrame(339, 89, frame, frame)), (std::vector{337, 88, 222, 185}));
    EXPECT_EQ(Numbers(PlaceInFrame(339, 89, frame, {221, 180})), (std::vector{337, 90, 221, 180}));
}

TEST(VideoPlacing, TheWindowGrowsWithItsFilmUpToTheWorkArea) {
    // Borders of 3 pixels, a caption of 19; 70 pixels of controls.
    const VideoWindowShape shape = {{456, 200}, {450, 175}, 92, 22};
    const struct {
        const char* name;
        VideoSize film;
        VideoSize window;
        VideoPlace frame;
    } cases[] = {
        {"small", {200, 50}, {456, 200}, {121, 93, {208, 58}}},
        {"large", {640, 480}, {663, 587}, {4, 72, {648, 488}}},
        // The controls above stay free.
        {"huge", {1920, 1080}, {1024, 740}, {-455, 72, {1928, 1088}}},
    };
    for (const auto& c : cases) {
        const VideoWindowPlaces places = PlaceInWindow(shape, {1024, 740}, c.film);
        EXPECT_EQ(places.window.width, c.window.width) << c.name;
        EXPECT_EQ(places.window.height, c.window.height) << c.name;
        EXPECT_EQ(Numbers(places.frame), Numbers(c.frame)) << c.name;
        EXPECT_EQ(Numbers(places.video),
                  (std::vector{c.frame.x + 4, c.frame.y + 4, c.film.width, c.film.height}))
            << c.name;
    }
}
