// What the CD player knows, shared by its files: ticks, commands, read-outs.
#pragma once

#include <windows.h>

#include "disc/disc_toc.h"

// Values 0 to 3 as the status line counts them; none before the first look at the drive.
enum class DiscState { kNone = -1, kEmpty = 0, kReady, kPlaying, kPaused };

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
    // Queries that have been reported and have not succeeded since: one repeated every second must
    // not raise a box every second.
    bool modeFailing = false;
    bool mediumFailing = false;
    bool tracksFailing = false;
};
extern CdPlayerState CdPlayer;
