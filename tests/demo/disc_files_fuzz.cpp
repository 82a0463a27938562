// Any bytes as a CUE sheet and as a wave file: no crash, and what is accepted keeps its bounds.
#include <cstdlib>
#include <sstream>

#include "demo/drive/cue_sheet.h"
#include "demo/drive/wave_source.h"

static void Require(bool condition) {
    if (!condition) std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    CueSheet sheet;
    int line = 0;
    if (ParseCueSheet(bytes, sheet, line)) {
        for (CueFile& file : sheet.files)
            file.sectors = 0xFFFFFFFF;
        const DiscLayout disc = LayOutDisc(sheet);
        Require(!disc.tracks.empty() && disc.tracks.size() <= kMaxCueTracks);
        uint32_t end = 0;
        for (const TrackSpan& track : disc.tracks) {
            Require(track.startSector == end && track.sectors <= 0xFFFFFFFF - end);
            end += track.sectors;
        }
        Require(end == disc.sectors && TrackOfSector(disc, end) == disc.tracks.size());
    }
    std::istringstream file(bytes);
    WaveSource source;
    if (ReadWaveHeader(file, source)) {
        const uint32_t frameBytes = source.channels * source.bytesPerSample;
        Require(source.dataOffset + uint64_t{source.frameCount} * frameBytes <= size);
        int16_t samples[2 * kSectorFrames];
        ReadWaveSector(file, source, WaveSectors(source) / 2, samples);
        ReadWaveSector(file, source, 0xFFFFFFFF, samples);
    }
    return 0;
}
