// Sound for a virtual device: a ring of buffers on a thread of its own.
#pragma once

#include <cstdint>
#include <functional>

struct OutputForm {
    uint32_t sampleRate;
    uint32_t channels;
    uint32_t bufferFrames;  // how many are asked for at a time
};

// Writes up to bufferFrames frames of 16 bits and says how many; 0 is the end. Called on the thread
// of the sound.
using FillWave = std::function<uint32_t(int16_t* frames)>;

struct WaveOutput;

// Never null. Without a wave device nothing is heard and nothing fails.
WaveOutput* StartWaveOutput(const OutputForm& form, FillWave fill);

// Silence at once; returns when the thread has ended. Null is allowed.
void StopWaveOutput(WaveOutput* output);
