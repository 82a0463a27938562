// Films that just fit and just do not, in the frame and in a window of their own.
#include "playback/video_placing.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>
#include <vector>

static std::vector<int> Numbers(const VideoPlace& place) {
    return {place.x, place.y, place.size.width, place.size.height};
}

TEST(VideoPlacing, SizesAreTakenByTheirAmountUpToALimit) {
    const std::tuple<int32_t, int32_t, bool> cases[] = {
        {320, -240, true},   {1, 1, true},       {-16384, 1, true},   {0, 240, false},
        {320, 0, false},     {16385, 10, false}, {10, -16385, false}, {INT_MIN, INT_MIN, false},
        {1, INT_MAX, false},
    };
    for (const auto& [width, height, taken] : cases) {
        VideoSize size = {-1, -1};
        EXPECT_EQ(TakeVideoSize(width, height, size), taken) << width << " " << height;
        EXPECT_EQ(size.width, taken ? std::abs(width) : -1);
        EXPECT_EQ(size.height, taken ? std::abs(height) : -1);
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
    const std::tuple<VideoSize, VideoSize, VideoPlace> cases[] = {
        {{200, 50}, {456, 200}, {121, 93, {208, 58}}},
        {{640, 480}, {663, 587}, {4, 72, {648, 488}}},
        // The controls above stay free.
        {{1920, 1080}, {1024, 740}, {-455, 72, {1928, 1088}}},
    };
    for (const auto& [film, window, frame] : cases) {
        SCOPED_TRACE(film.width);
        const VideoWindowPlaces places = PlaceInWindow(shape, {1024, 740}, film);
        EXPECT_EQ(Numbers({0, 0, places.window}), Numbers({0, 0, window}));
        EXPECT_EQ(Numbers(places.frame), Numbers(frame));
        EXPECT_EQ(Numbers(places.video), Numbers({frame.x + 4, frame.y + 4, film}));
    }
}
