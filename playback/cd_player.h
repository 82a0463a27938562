// The CD player's view of the drive: what the main window's timer calls in cdplayer mode, and what
// comes with entering the mode, starting and ending.
#pragma once

#include <windows.h>

// The first state, before the drive has been opened.
void ResetCdPlayer();
// Opens the drive at start-up and reads a disc that is in it. Silent without a driver.
void OpenCdPlayer(HWND window);
// Stops a playing disc and closes the drive, at the end of the program.
void CloseCdPlayer(HWND window);

// Entering cdplayer mode (also at start-up in it): one look at the drive, so that a disc changed
// meanwhile is noticed, then all read-outs and the track buttons.
void ShowCdPlayer(HWND window);
// The 1000 ms tick, and the look that comes before a request from outside. In a file mode too: what
// it writes then is hidden, and the scroll bar is left alone.
void CdStatusTick(HWND window);

// For the commands
// Opens the drive and, when it holds a disc, takes it. False when there is no device afterwards.
bool OpenDriveAndReadDisc(HWND window);
// The drive's mode; a query that keeps failing is reported once. False on failure and without a
// device.
bool QueryDriveMode(HWND window, DWORD& mode);
