// See video_placing.h.
#include "playback/video_placing.h"

#include <algorithm>

constexpr int64_t kMostPixels = 16384;

// The controls' frame is drawn up to this far into its client area.
constexpr int kBorderX = 2;
constexpr int kBorderY = 1;

// Of the window of a large film: what its width and its height have beside the film, and the rim of
// the frame around it.
constexpr int kSpareWidth = 23;
constexpr int kSpareHeight = 15;
constexpr int kRim = 4;

bool TakeVideoSize(int32_t width, int32_t height, VideoSize& size) {
    const int64_t wide = width < 0 ? -int64_t{width} : width;
    const int64_t high = height < 0 ? -int64_t{height} : height;
    if (wide == 0 || high == 0 || wide > kMostPixels || high > kMostPixels) return false;
    size = {static_cast<int>(wide), static_cast<int>(high)};
    return true;
}

bool FitsFrame(VideoSize video, VideoSize frame) {
    return video.width <= frame.width && video.height <= frame.height;
}

VideoPlace PlaceInFrame(int frameX, int frameY, VideoSize frame, VideoSize video) {
    return {frameX - kBorderX + (frame.width - video.width) / 2,
            frameY - kBorderY + (frame.height - video.height) / 2, video};
}

VideoWindowPlaces PlaceInWindow(const VideoWindowShape& shape, VideoSize workArea,
                                VideoSize video) {
    const VideoSize borders = {shape.window.width - shape.client.width,
                               shape.window.height - shape.client.height};
    const VideoSize frame = {video.width + 2 * kRim, video.height + 2 * kRim};
    VideoWindowPlaces places;
    places.window.width =
        std::min(std::max(shape.window.width, video.width + kSpareWidth), workArea.width);
    places.window.height = std::min(
        std::max(shape.window.height, shape.barTop + kSpareHeight + video.height), workArea.height);
    const int clientWidth = places.window.width - borders.width;
    const int clientHeight = places.window.height - borders.height;
    const int bar = shape.barTop - shape.clientTop;
    places.frame.x = (clientWidth - frame.width) / 2;
    // What is too high is cut at the bottom: the controls stay free.
    places.frame.y = bar + std::max((clientHeight - bar - frame.height) / 2, 2);
    places.frame.size = frame;
    places.video = {places.frame.x + kRim, places.frame.y + kRim, video};
    return places;
}
