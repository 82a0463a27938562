// The arithmetic of an audio compact disc: what the drive's packed numbers mean, the read-outs at a
// position, where the skip and page buttons lead.
#pragma once

#include <cstdint>
#include <string>

#include "disc/disc_toc.h"

constexpr int kTrackPageSize = 15;

// A position as the drive counts it. Each field is one byte of the packed form, the track lowest.
struct DiscPosition {
    int track;
    int minutes;
    int seconds;
};

DiscPosition UnpackPosition(uint32_t tmsf);
// Every argument 0 to 255.
uint32_t PackPosition(int track, int minutes, int seconds, int frames);
// A packed length has no track: minutes lie in the lowest byte. Frames are dropped, not rounded.
uint16_t UnpackLengthSeconds(uint32_t msf);
int SecondsIntoTrack(const DiscPosition& position);

// "3:07": minutes are not padded and may exceed 59.
std::string MinutesSecondsText(int totalSeconds);

// Seconds; 0 for every number that is no track of the disc.
uint16_t TrackLengthSeconds(const DiscToc& toc, int track);

// The four running read-outs in 16-bit seconds, which wrap as the disc total does.
struct DiscReadouts {
    uint16_t time;
    uint16_t remaining;
    uint16_t totalPlaying;
    uint16_t totalRemaining;
};
DiscReadouts ReadoutsAt(const DiscToc& toc, int track, int elapsedSeconds);

// Pages of fifteen track buttons; no pages without tracks. With fewer than two pages the page
// buttons lead to page 0.
int PageCount(int trackCount);
int PageAfter(int page, int pageCount);
int PageBefore(int page, int pageCount);
// 0 to 14: the button that lights up for a track. It is the same on every page, also on those that
// do not hold the track.
int HighlightedButton(int track);

// Where "<< Skip" and "Skip >>" lead from a current track; 0 when there is nowhere to go.
int SkipBackTarget(int currentTrack, int trackCount, int elapsedSeconds);
int SkipForwardTarget(int currentTrack, int trackCount);

// A scroll position moved by some seconds, kept within the track.
int MovedPosition(int position, int bySeconds, int lengthSeconds);
