// The one wave, MIDI or video device that is open at a time, and what all its players share.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <cstdint>
#include <string>

#include "base/modes.h"
#include "playback/scroll_scale.h"

struct MediaDeviceState {
    MCIDEVICEID id = 0;  // 0 while no device is open
    bool open = false;
    bool paused = false;       // only ever set while a device is open
    bool playAndExit = false;  // the program ends with its queue
    bool seekPause = false;    // a seek is preceded by a pause
    bool dragging = false;     // the user holds the scroll bar; read-outs do not follow the device
    int32_t lengthMs = 0;
    ScrollScale scroll;
};
extern MediaDeviceState MediaDevice;

extern DriverFlags DriverAvailable;

// One command to the open device. A failure is reported, which closes the device; without an open
// device nothing is sent. True when the command succeeded.
bool SendToDevice(UINT message, DWORD_PTR flags, void* parameters);

// Opens a file by its full path, sets milliseconds, shows the length, seeks to the start and plays.
// Every failure is reported. True when the device is open and plays.
bool OpenAndPlay(const std::string& path);

// Stops and closes the device, if one is open, and blanks the read-outs.
void StopAndReset();

// True when no device is open, or when it had stopped and is closed now. Failures are reported,
// which ends the queue.
bool CloseIfStopped();

// Pause or resume; to be called only while a device is open.
void TogglePause();
// Plays on from the pause.
void ResumePlay();
// The timers of a playing file, while a device is open.
void StartPlayTimers();

// Plays from there; while paused the device moves there and stays still. Clamped to the file.
void SeekDevice(int32_t milliseconds);

// Takes the length of a newly opened file over into read-outs and scroll bar.
void SetLengthDisplay(int32_t lengthMs);
// The position read-out; a position beyond the length is shown as it is.
void ShowPosition(int64_t milliseconds);
void ShowStatus(const char* text);
// Switches the queue's repeat and repaints its button.
void SetRepeat(bool repeat);
