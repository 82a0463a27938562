// What films need beyond sounds: a place for the picture, frames, sound that can be switched off, a
// palette. The same in the main window's frame and in the window of a large film.
#pragma once

#include <windows.h>

#include <string>

#include "playback/video_placing.h"

struct VideoPlayerState {
    bool muted = false;  // films play without their sound
};
extern VideoPlayerState VideoPlayer;

// The size of the open film's pictures, as its player answers it: negative where they are stored
// from the top. A failure is reported.
bool QueryPictureSize(HWND window, VideoSize& size);

// Opens a film into the main window's picture and asks for its size. A failure is reported, and so
// is a size that no screen has.
bool OpenVideo(HWND window, const std::string& path, VideoSize& size);

bool FitsVideoFrame(HWND window, VideoSize size);
// Puts the picture into the middle of the main window's frame.
void PlacePicture(HWND window, VideoSize size);

// Plays the open film from its start, by the user's choice of unit and sound. Failures are
// reported. True when it plays; `picture` is the control it is seen in.
bool StartVideo(HWND window, HWND picture);

// Switches the sound of films, also of the one that plays, and repaints the button.
void SwitchVideoSound(HWND window);

// For WM_ERASEBKGND of the window around a picture: leaves it out, so that it does not flicker.
void LeaveOutPicture(HWND picture, HDC dc);

// For WM_CTLCOLORSTATIC: the black behind a picture. Null for every other control.
HBRUSH PictureGround(HWND control);

// On a screen with a palette the film's colours are put into it, when its player offers them.
void RealizeVideoPalette(HWND picture);
