// What the CD player knows, shared by its three files: ticks, commands, read-outs.
#pragma once

#include "playback/cd_player.h"

struct CdPlayerState {
    DiscState state = DiscState::kNone;
    bool discPresent = false;
    bool paused = false;
    bool dragging = false;     // the user holds the scroll bar's thumb
    bool trackStale = false;   // the next position tick shows the track anew
    bool titlesStale = false;  // the catalogue could not be asked: the next look asks again
    int currentTrack = 0;      // 0 before anything has played; SetCurrentTrack changes it
    int lengthReadsLeft = 0;   // how often a disc with missing track lengths is still read again
    int page = 0;              // of track buttons
    int pageCount = 0;
    int highlightedButton = 0;  // 0 to 14
    DiscToc toc;
    // What the drive answered when `toc` was read; a different answer means a different disc.
    DWORD deviceTrackCount = 0;
    DWORD deviceLength = 0;
};
extern CdPlayerState CdPlayer;

// Opens the drive and, when it holds a disc, takes it. False when there is no device afterwards.
bool OpenDriveAndReadDisc();
// The drive's mode; a query that keeps failing is reported once. False on failure.
bool QueryDriveMode(DWORD& mode);
