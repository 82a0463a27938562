// How the synthesizer's instruments sound, and which of them a General MIDI program number means.
#pragma once

#include <cstdint>

constexpr int kHarmonics = 10;
constexpr int kTimbres = 9;

struct Timbre {
    float harmonics[kHarmonics];  // amplitude of the fundamental and its multiples
    float attackSeconds;
    float decaySeconds;  // time to fall to 37 % of the way to the sustain level
    float sustain;       // 0 to 1
    float releaseSeconds;
    float gain;
};

extern const Timbre kTimbreTable[kTimbres];

// program is 0 to 127.
uint8_t TimbreOfProgram(int program);

struct Drum {
    float hertz;
    float pitchFall;     // share of the pitch that is lost in each second, as an exponent
    float decaySeconds;  // of the drum's tone
    float toneLevel;
    float noiseLevel;
    float noiseDecaySeconds;
    float noiseBrightness;  // 0 dull to 1 hiss
};

// The drum that a key of the drum channel strikes.
const Drum& DrumOfKey(int key);
