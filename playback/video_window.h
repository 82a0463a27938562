// Dialog 1500: the window of a film that is larger than the main window's frame.
#pragma once

#include <windows.h>

#include <string>

#include "playback/video_placing.h"

struct LargeFilm {
    std::string path;
    std::string name;  // shown in the title
    VideoSize size;
    bool seekPause;  // a seek is preceded by a pause
};

enum class VideoWindowEnd {
    kEnded,   // by itself: the queue goes on
    kFailed,  // the film does not play; the user has been told
    kClosed,  // by the user
};

// Plays the film from its start. No device is open before nor afterwards. The queue has already
// counted the film; with repeat the window starts the film or the queue over.
VideoWindowEnd ShowVideoWindow(HWND owner, const LargeFilm& film);
