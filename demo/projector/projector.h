// One opened film: the file, where it stands, its window and its sound.
#pragma once

#include <windows.h>

#include <atomic>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "demo/device/wave_output.h"
#include "demo/projector/film_file.h"
#include "demo/projector/film_transport.h"

struct Projector {
    bool isOpen = false;
    std::wstring path;
    std::shared_ptr<const Film> film;
    std::ifstream file;  // of the pictures; the sound has its own
    FilmTransport transport;
    bool inFrames = false;  // positions are frames, not milliseconds
    std::shared_ptr<std::atomic<bool>> isMuted = std::make_shared<std::atomic<bool>>(false);
    WaveOutput* sound = nullptr;
    HWND window = nullptr;    // null once its parent has taken it along
    RECT destination = {};    // of the picture in the window
    uint32_t shownFrame = 0;  // in rows
    std::vector<uint8_t> rows;
};

// Reads the film and makes its hidden window. False when the file is none or there is no window.
bool OpenProjector(Projector& projector, const std::wstring& path, HWND parent, DWORD style);
void CloseProjector(Projector& projector);

// Lets be seen and heard what the transport does; to be called after each change of it.
void ProjectorFollows(Projector& projector);

// Shows the frame of this moment, if another one was shown.
void ShowFrameOfNow(Projector& projector);

// Once, before the first window and after the last.
void RegisterProjectorWindow(HINSTANCE library);
void UnregisterProjectorWindow(HINSTANCE library);
