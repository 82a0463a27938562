// A disc in the virtual drive: its CUE sheet, the files behind it and its sound.
#pragma once

#include <filesystem>
#include <fstream>
#include <vector>

#include "demo/drive/cue_sheet.h"
#include "demo/drive/wave_source.h"

struct Disc {
    CueSheet sheet;
    DiscLayout layout;
    std::filesystem::path folder;
    std::vector<WaveSource>
        sources;  // one per file of the sheet; frameCount 0 where it has no sound
};

// False when the sheet cannot be read or understood; disc is untouched then. A file that is missing
// or no PCM wave file makes its tracks 0 long.
bool LoadDisc(const std::filesystem::path& sheetPath, Disc& disc);

// The file that was read last, kept open from sector to sector.
struct OpenTrackFile {
    int index = -1;
    std::ifstream stream;
};

// The sound of one sector; silence on data tracks and behind the end.
void ReadDiscSector(const Disc& disc, OpenTrackFile& open, uint32_t sector,
                    int16_t (&samples)[2 * kSectorFrames]);
