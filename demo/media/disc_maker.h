// Writes a demo disc: one wave file a track and the CUE sheet that describes them.
#pragma once

#include <filesystem>

#include "demo/drive/disc_layout.h"
#include "demo/media/pieces.h"

constexpr int kTrackSampleRate = 22050;

// The sectors a track takes on the disc: its sound, rounded up to whole sectors.
uint32_t TrackSectors(const DiscTrack& track);

// False when a file could not be written.
bool WriteDisc(const std::filesystem::path& directory, const DemoDisc& disc);
