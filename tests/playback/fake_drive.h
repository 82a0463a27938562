// A CD drive for the CD player's tests: answers the media control interface's commands from a state
// that the test sets, writes every command down, and makes the n-th one fail.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <string>
#include <vector>

struct FakeDrive {
    MCIERROR openError = 0;
    bool canEject = true;
    bool present = true;
    DWORD mode = MCI_MODE_STOP;
    std::vector<DWORD> trackSeconds;
    DWORD position = 0;  // packed track, minutes, seconds, frames

    std::vector<std::string> log;  // "mode", "length 3", "play 5 1:02.30" ...
    int failAt = -1;               // index into `log` from now on
    MCIERROR failure = MCIERR_HARDWARE;
};
extern FakeDrive Drive;

// Puts the drive behind Mci, with a disc of these track lengths.
void InstallFakeDrive(std::vector<DWORD> trackSeconds);
void InsertDisc(std::vector<DWORD> trackSeconds);
void RemoveDisc();
// The drive plays, a number of seconds into a track.
void SetPlaying(DWORD track, DWORD seconds);

// The commands since the last call.
std::vector<std::string> TakeLog();
