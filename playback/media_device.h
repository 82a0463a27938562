// The one wave, MIDI or video device that is open at a time, what all its players share, and the
// one way in which a failure of the media control interface reaches the user. The window is the one
// the file plays in: its read-outs and its timers are meant.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <cstdint>
#include <string>

#include "base/modes.h"
#include "playback/play_position.h"

struct MediaDeviceState {
    MCIDEVICEID id = 0;  // 0 while no device is open
    bool open = false;
    bool paused = false;       // only ever set while a device is open
    bool playAndExit = false;  // the program ends with its queue
    bool seekPause = false;    // a seek is preceded by a pause
    bool dragging = false;     // the user holds the scroll bar; read-outs do not follow the device
    PlayLength length;
};
extern MediaDeviceState MediaDevice;

extern DriverFlags DriverAvailable;

// One command to the open device. A failure is reported, which closes the device; without an open
// device nothing is sent. True when the command succeeded.
bool SendToDevice(HWND window, UINT message, DWORD_PTR flags, void* parameters);
// The same for one status item; on failure `value` is left alone.
bool QueryDevice(HWND window, DWORD item, DWORD& value);

// Opens a file by its full path, a film into a child window of `picture`. A failure is reported.
bool OpenDevice(HWND window, const std::string& path, HWND picture = nullptr);
// What positions of the open file count.
bool SetTimeFormat(HWND window, PlayUnit unit);
// The open file's length into read-outs and scroll bar.
void TakeLength(HWND window);
// Plays from the beginning on.
void PlayFromStart(HWND window);

// Closes the device without a word, if one is open; for a device that never played.
void CloseUnplayedDevice();
// Stops and closes the device, if one is open, and blanks the read-outs.
void StopAndReset(HWND window);

// Stops the open device, which stays open. False when that failed, which is reported.
bool StopDevice(HWND window);
// Closes the open device. False when that failed, which is reported.
bool CloseDevice(HWND window);
// True when no device is open, or when it had stopped and is closed now. Failures are reported,
// which ends the queue.
bool CloseIfStopped(HWND window);

// Pause or resume; to be called only while a device is open.
void TogglePause(HWND window);
// Plays on from the pause.
void ResumePlay(HWND window);
// The timers of a playing file, while a device is open.
void StartPlayTimers(HWND window);

// Plays from there, in the unit of the open file; while paused the device moves there and stays
// still. Clamped to the file.
void SeekDevice(HWND window, int32_t position);

// The picture in the main window's frame: black behind the film, not there without one.
void ShowPicture(HWND window, bool show);

// Switches the queue's repeat and repaints its button.
void SetRepeat(HWND window, bool repeat);

// Switches repeat off (not in cdplayer mode), stops and resets the file device and the window's
// timers, and shows the platform's text for the code. In cdplayer mode the timers run again when
// the box closes.
void ReportMediaError(HWND window, MCIERROR code);
// The same for the drive. Outside cdplayer mode it only shows the text: a file that plays is not
// stopped by what the drive cannot do.
void ReportDiscError(HWND window, MCIERROR code);
