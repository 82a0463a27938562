// A CD drive behind the stand-in media control interface: answers from a state that the test sets.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <vector>

struct FakeDrive {
    MCIERROR openError = 0;
    bool present = true;
    bool tellsTracks = true;
    bool tellsLengths = true;
    DWORD mode = MCI_MODE_STOP;
    std::vector<DWORD> trackSeconds;
    DWORD lastFrame = 74;  // of the disc, within its last second
    DWORD position = 0;    // packed track, minutes, seconds, frames
};
extern FakeDrive Drive;

// Makes it the drive of TheMci, with a disc of these track lengths.
void InstallFakeDrive(std::vector<DWORD> trackSeconds);
void InsertDisc(std::vector<DWORD> trackSeconds);
void RemoveDisc();
// The drive plays, a number of seconds into a track.
void SetPlaying(DWORD track, DWORD seconds);
