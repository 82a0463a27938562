// The table of contents of an audio compact disc, as the player reads it and the database keeps it.
#pragma once

#include <cstdint>

constexpr int kMaxTracks = 99;

// Lengths are whole seconds (minutes * 60 + seconds, frames dropped); element 0 is track 1.
// totalSeconds is the sum of the track lengths modulo 65,536.
struct DiscToc {
    uint16_t trackCount = 0;  // 0 to kMaxTracks
    uint16_t totalSeconds = 0;
    uint16_t lengthSeconds[kMaxTracks] = {};

    bool operator==(const DiscToc&) const = default;
};
