// Reads PCM wave files sector by sector in the disc's own form: 44,100 Hz, two channels, 16 bits.
#pragma once

#include <cstdint>
#include <istream>

constexpr int kDiscSampleRate = 44100;
constexpr int kSectorFrames = 588;

struct WaveSource {
    uint64_t dataOffset = 0;
    uint32_t frameCount = 0;
    uint32_t sampleRate = 0;  // 4000 to 192000
    uint32_t channels = 0;    // 1 or 2
    uint32_t bytesPerSample = 0;
};

// False when the stream holds no PCM wave file of 8 or 16 bits; source is untouched then. A data
// chunk that claims more than the file has counts as far as the file goes.
bool ReadWaveHeader(std::istream& file, WaveSource& source);

// The sectors the file fills, the last one perhaps in part; at most 2^31.
uint32_t WaveSectors(const WaveSource& source);

// One sector of sound; silence where the file has none.
void ReadWaveSector(std::istream& file, const WaveSource& source, uint32_t sector,
                    int16_t (&samples)[2 * kSectorFrames]);
