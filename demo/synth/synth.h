// The demo's synthesizer: sixteen channels of band-limited waves with envelopes, and noise for
// drums. Plays both the media maker's pieces and, through the MIDI mapper, whatever a sequencer
// sends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

constexpr int kSynthChannels = 16;
constexpr int kDrumChannel = 9;
constexpr int kMaxVoices = 40;

struct Voice {
    bool active = false;
    bool released = false;
    bool heldByPedal = false;
    uint8_t channel = 0;
    uint8_t key = 0;
    uint8_t timbre = 0;
    uint32_t startOrder = 0;
    float phase = 0;      // in table entries
    float phaseStep = 0;  // table entries per frame, without bend
    float velocity = 0;   // 0 to 1
    float level = 0;      // envelope, 0 to 1
    bool attacking = true;
    float noiseLevel = 0;  // drums: what is left of the noise burst
    float noiseSmooth = 0;
};

struct Channel {
    uint8_t timbre = 0;
    float volume = 0.8F;      // 0 to 1
    float expression = 1.0F;  // 0 to 1
    float pan = 0.5F;         // 0 left, 1 right
    float bend = 1.0F;        // factor on the pitch
    bool pedal = false;
};

// Delay lines of a small reverb, for each of the two sides.
struct Reverb {
    std::vector<float> lines[2][4];
    size_t at[2][4] = {};
};

struct Synth {
    int sampleRate = 0;
    uint32_t noteOrder = 0;
    uint32_t noiseState = 1;
    Voice voices[kMaxVoices];
    Channel channels[kSynthChannels];
    Reverb reverb;
    std::vector<float> tables;  // [timbre][octave][entry]
};

// Silence, every channel at its default. sampleRate is 8000 to 48000 Hz; others are clamped.
void ResetSynth(Synth& synth, int sampleRate);

// Plays a MIDI short message, packed as the sequencer sends it: status in the lowest byte, then two
// data bytes. Data bytes are masked to seven bits; messages the synthesizer does not know do
// nothing.
void PlayMidiMessage(Synth& synth, uint32_t message);

// Releases every note of every channel; what rings on fades by itself.
void ReleaseAllNotes(Synth& synth);

// Mixes frameCount frames of two interleaved samples, each within -1 to 1.
void RenderSynth(Synth& synth, float* frames, int frameCount);

// The signed 16-bit sample nearest to a mixed one.
int16_t ToSample16(float sample);
