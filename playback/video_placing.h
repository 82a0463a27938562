// Where a film stands: in the main window's frame when it fits, else in a window made to its size.
#pragma once

#include <cstdint>

// Pixels.
struct VideoSize {
    int width = 0;
    int height = 0;
};

struct VideoPlace {
    int x = 0;
    int y = 0;
    VideoSize size;
};

// The size that a player answers. A film stored from the top down answers a negative height: signs
// do not count. False for sizes of nothing and for those beyond any screen.
bool TakeVideoSize(int32_t width, int32_t height, VideoSize& size);

bool FitsFrame(VideoSize video, VideoSize frame);

// The film's corner in the frame, whose own corner is given; spare pixels are halved.
VideoPlace PlaceInFrame(int frameX, int frameY, VideoSize frame, VideoSize video);

// What the window of a large film measures before it is sized.
struct VideoWindowShape {
    VideoSize window;
    VideoSize client;
    int barTop = 0;     // upper edge of the line below the controls, from the window's own top
    int clientTop = 0;  // of the client area, from the window's own top
};

struct VideoWindowPlaces {
    VideoSize window;
    VideoPlace frame;  // client coordinates, like the video inside it
    VideoPlace video;
};

// The window never becomes smaller than it was, nor larger than the work area; a film that is
// larger is clipped and keeps its size.
VideoWindowPlaces PlaceInWindow(const VideoWindowShape& shape, VideoSize workArea, VideoSize video);
