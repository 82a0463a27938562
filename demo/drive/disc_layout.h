// Where the tracks of a compact disc lie, and the arithmetic between sectors and the three ways in
// which MCI counts time on a disc.
#pragma once

#include <cstdint>
#include <vector>

constexpr uint32_t kSectorsPerSecond = 75;
// Two seconds in front of the first track count in absolute positions, as on every disc.
constexpr uint32_t kLeadInSectors = 150;

struct TrackSpan {
    uint32_t startSector;  // from the start of the first track
    uint32_t sectors;      // may be 0
    bool isAudio;
};

struct DiscLayout {
    std::vector<TrackSpan> tracks;  // element 0 is track 1; at most 255
    uint32_t sectors = 0;           // of the whole disc
};

// tmsf is track, minutes, seconds, frames from the lowest byte up; msf is minutes, seconds, frames.
enum class TimeFormat { kMilliseconds, kMsf, kTmsf };

// A length in the given format; tmsf has no tracks in a length and means msf. Minutes beyond 255 do
// not fit their byte and give the largest length there is.
uint32_t PackLength(uint32_t sectors, TimeFormat format);

// A position on the disc, from 0 to disc.sectors.
uint32_t PackPosition(const DiscLayout& disc, uint32_t sector, TimeFormat format);

// The sector that a packed position means. False, with sector untouched, when it names no place on
// the disc: no such track, 60 seconds or 75 frames and more, before the first track or behind the
// last.
bool UnpackPosition(const DiscLayout& disc, uint32_t packed, TimeFormat format, uint32_t& sector);

// The 1-based track that holds the sector; the last track at the end of the disc, 0 without tracks.
uint32_t TrackOfSector(const DiscLayout& disc, uint32_t sector);
