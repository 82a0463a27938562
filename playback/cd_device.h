// The drive's audio device: opened at start-up, kept open for the life of the program, independent
// of the file device.
#pragma once

#include <windows.h>

#include <mmsystem.h>

// 0 while no device is open.
MCIDEVICEID CdDevice();
bool IsCdOpen();
// Known from the open on; false without a device.
bool CanEjectDisc();

// The first state, with no device open.
void ResetCdDevice();
// False when there is no device afterwards. A missing driver stays silent, other failures are
// shown.
bool OpenCdDevice(HWND window);
void CloseCdDevice(HWND window);

// Without waiting for the tray; results are ignored, because drives without a motor refuse.
void OpenCdDoor();
void CloseCdDoor();

// One command with a parameter block of zeros, because the platform's driver refuses commands
// without one. Failures are shown. False on failure.
bool SendToCd(HWND window, UINT message, DWORD_PTR flags);
// Plays on from the beginning of a frame packed as track, minutes, seconds, frames. Not reported: 0
// or what the drive answered.
MCIERROR PlayCdFrom(DWORD position);
