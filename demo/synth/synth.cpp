// Voices, channels and the mix.
#include "demo/synth/synth.h"

#include <algorithm>
#include <cmath>

#include "demo/synth/timbres.h"

static constexpr int kTableEntries = 1024;
static constexpr int kOctaves = 11;
static constexpr float kSilence = 0.0004F;
static constexpr float kPi = 3.14159265F;

static float KeyHertz(int key) {
    return 440.0F * std::exp2(static_cast<float>(key - 69) / 12.0F);
}

static float* TableOf(Synth& synth, int timbre, int octave) {
    const size_t index = static_cast<size_t>(timbre) * kOctaves + static_cast<size_t>(octave);
    return synth.tables.data() + index * kTableEntries;
}

// One table per octave holds only the harmonics that stay below half the sample rate for the
// highest key of that octave, so that no note folds back into false tones.
static void FillTables(Synth& synth) {
    synth.tables.assign(static_cast<size_t>(kTimbres) * kOctaves * kTableEntries, 0.0F);
    std::vector<float> sine(kTableEntries);
    for (int i = 0; i < kTableEntries; ++i)
        sine[static_cast<size_t>(i)] = std::sin(2 * kPi * static_cast<float>(i) / kTableEntries);
    for (int timbre = 0; timbre < kTimbres; ++timbre) {
        for (int octave = 0; octave < kOctaves; ++octave) {
            float* table = TableOf(synth, timbre, octave);
            const float highest = KeyHertz(octave * 12 + 11);
            const float limit = 0.48F * static_cast<float>(synth.sampleRate);
            for (int h = 1; h <= kHarmonics && highest * static_cast<float>(h) < limit; ++h) {
                const float amplitude = kTimbreTable[timbre].harmonics[h - 1];
                for (int i = 0; i < kTableEntries; ++i)
                    table[i] += amplitude * sine[static_cast<size_t>(i * h % kTableEntries)];
            }
        }
    }
}

static void ResetReverb(Synth& synth) {
    // Lengths in milliseconds without a common divisor, a little longer on the right.
    static const float kLineMs[2][4] = {{29.7F, 37.1F, 41.1F, 43.7F}, {30.3F, 36.1F, 42.1F, 44.9F}};
    for (int side = 0; side < 2; ++side) {
        for (int line = 0; line < 4; ++line) {
            const float frames = kLineMs[side][line] * static_cast<float>(synth.sampleRate) / 1000;
            synth.reverb.lines[side][line].assign(static_cast<size_t>(frames), 0.0F);
            synth.reverb.at[side][line] = 0;
        }
    }
}

void ResetSynth(Synth& synth, int sampleRate) {
    synth = Synth();
    synth.sampleRate = std::clamp(sampleRate, 8000, 48000);
    FillTables(synth);
    ResetReverb(synth);
}

// A free voice, else the one that has been sounding longest, released ones first.
static Voice& TakeVoice(Synth& synth) {
    Voice* oldest = &synth.voices[0];
    for (Voice& voice : synth.voices) {
        if (!voice.active) return voice;
        if (voice.released != oldest->released ? voice.released
                                               : voice.startOrder < oldest->startOrder)
            oldest = &voice;
    }
    return *oldest;
}

static void ReleaseVoice(Synth& synth, Voice& voice) {
    voice.heldByPedal = synth.channels[voice.channel].pedal;
    if (!voice.heldByPedal) voice.released = true;
}

static void StopNote(Synth& synth, int channel, int key) {
    for (Voice& voice : synth.voices) {
        if (voice.active && !voice.released && voice.channel == channel && voice.key == key &&
            channel != kDrumChannel)
            ReleaseVoice(synth, voice);
    }
}

static void StartNote(Synth& synth, int channel, int key, int velocity) {
    StopNote(synth, channel, key);
    Voice& voice = TakeVoice(synth);
    voice = Voice();
    voice.active = true;
    voice.channel = static_cast<uint8_t>(channel);
    voice.key = static_cast<uint8_t>(key);
    voice.timbre = synth.channels[channel].timbre;
    voice.startOrder = ++synth.noteOrder;
    voice.velocity = static_cast<float>(velocity) / 127;
    voice.velocity *= voice.velocity;
    float hertz = KeyHertz(key);
    if (channel == kDrumChannel) {
        const Drum& drum = DrumOfKey(key);
        hertz = drum.hertz;
        voice.level = drum.toneLevel;
        voice.noiseLevel = drum.noiseLevel;
    }
    voice.phaseStep = hertz * kTableEntries / static_cast<float>(synth.sampleRate);
}

void ReleaseAllNotes(Synth& synth) {
    for (Channel& channel : synth.channels)
        channel.pedal = false;
    for (Voice& voice : synth.voices)
        voice.released = true;
}

static void SetPedal(Synth& synth, int channel, bool down) {
    synth.channels[channel].pedal = down;
    if (down) return;
    for (Voice& voice : synth.voices) {
        if (voice.channel == channel && voice.heldByPedal) voice.released = true;
    }
}

static void ChangeControl(Synth& synth, int channel, int control, int value) {
    Channel& state = synth.channels[channel];
    const float share = static_cast<float>(value) / 127;
    switch (control) {
        case 7:
            state.volume = share;
            break;
        case 10:
            state.pan = share;
            break;
        case 11:
            state.expression = share;
            break;
        case 64:
            SetPedal(synth, channel, value >= 64);
            break;
        case 120:
        case 123:
            SetPedal(synth, channel, false);
            for (Voice& voice : synth.voices)
                voice.released = voice.released || voice.channel == channel;
            break;
        case 121: {
            SetPedal(synth, channel, false);
            state.expression = 1;
            state.bend = 1;
            break;
        }
        default:
            break;
    }
}

void PlayMidiMessage(Synth& synth, uint32_t message) {
    const int channel = static_cast<int>(message & 15);
    const int first = static_cast<int>(message >> 8 & 127);
    const int second = static_cast<int>(message >> 16 & 127);
    switch (message >> 4 & 15) {
        case 8:
            StopNote(synth, channel, first);
            break;
        case 9:
            if (second == 0)
                StopNote(synth, channel, first);
            else
                StartNote(synth, channel, first, second);
            break;
        case 11:
            ChangeControl(synth, channel, first, second);
            break;
        case 12:
            synth.channels[channel].timbre = TimbreOfProgram(first);
            break;
        case 14: {
            // Two semitones each way, as instruments are set when nothing else was asked for.
            const float bend = static_cast<float>((second << 7 | first) - 8192) / 8192;
            synth.channels[channel].bend = std::exp2(bend * 2 / 12);
            break;
        }
        default:
            break;
    }
}

static float NextNoise(Synth& synth) {
    synth.noiseState = synth.noiseState * 1664525U + 1013904223U;
    return static_cast<float>(synth.noiseState >> 8) / 8388608.0F - 1.0F;
}

// The factor per frame that lets a level fall to 37 % in the given time.
static float FallPerFrame(const Synth& synth, float seconds) {
    return std::exp(-1.0F / (seconds * static_cast<float>(synth.sampleRate)));
}

static float ReadTable(const float* table, float phase) {
    const int index = static_cast<int>(phase);
    const float share = phase - static_cast<float>(index);
    const float here = table[index & (kTableEntries - 1)];
    return here + share * (table[(index + 1) & (kTableEntries - 1)] - here);
}

static void AdvancePhase(Voice& voice, float step) {
    voice.phase += step;
    while (voice.phase >= kTableEntries)
        voice.phase -= kTableEntries;
}

static void MixTone(Synth& synth, Voice& voice, float* mono, int frameCount) {
    const Timbre& timbre = kTimbreTable[voice.timbre];
    const Channel& channel = synth.channels[voice.channel];
    const float* table = TableOf(synth, voice.timbre, std::min<int>(voice.key / 12, kOctaves - 1));
    const float rise = 1.0F / (timbre.attackSeconds * static_cast<float>(synth.sampleRate));
    const float decay = FallPerFrame(synth, timbre.decaySeconds);
    const float release = FallPerFrame(synth, timbre.releaseSeconds / 3);
    const float step = std::min(voice.phaseStep * channel.bend, kTableEntries / 2.0F);
    const float gain = timbre.gain * voice.velocity;
    for (int i = 0; i < frameCount; ++i) {
        if (voice.released)
            voice.level *= release;
        else if (voice.attacking)
            voice.level += rise;
        else
            voice.level = timbre.sustain + (voice.level - timbre.sustain) * decay;
        if (voice.level >= 1) {
            voice.level = 1;
            voice.attacking = false;
        }
        mono[i] += ReadTable(table, voice.phase) * voice.level * gain;
        AdvancePhase(voice, step);
    }
    if (voice.level < kSilence && (voice.released || !voice.attacking)) voice.active = false;
}

static void MixDrum(Synth& synth, Voice& voice, float* mono, int frameCount) {
    const Drum& drum = DrumOfKey(voice.key);
    const float* sine = TableOf(synth, 7, 3);
    const float toneFall = FallPerFrame(synth, drum.decaySeconds);
    const float noiseFall = FallPerFrame(synth, drum.noiseDecaySeconds);
    const float pitchFall = std::exp(-drum.pitchFall / static_cast<float>(synth.sampleRate) * 8);
    for (int i = 0; i < frameCount; ++i) {
        const float noise = NextNoise(synth);
        voice.noiseSmooth += (noise - voice.noiseSmooth) * 0.25F;
        const float colour =
            noise * drum.noiseBrightness + voice.noiseSmooth * 2 * (1 - drum.noiseBrightness);
        const float tone = ReadTable(sine, voice.phase) * voice.level;
        mono[i] += (tone + colour * voice.noiseLevel) * voice.velocity * 0.6F;
        AdvancePhase(voice, std::min(voice.phaseStep, kTableEntries / 2.0F));
        voice.phaseStep *= pitchFall;
        voice.level *= toneFall;
        voice.noiseLevel *= noiseFall;
    }
    if (voice.level < kSilence && voice.noiseLevel < kSilence) voice.active = false;
}

static void AddReverb(Synth& synth, float* frames, int frameCount) {
    for (int side = 0; side < 2; ++side) {
        for (int i = 0; i < frameCount; ++i) {
            float& sample = frames[2 * i + side];
            float echo = 0;
            for (int line = 0; line < 4; ++line) {
                std::vector<float>& delay = synth.reverb.lines[side][line];
                size_t& at = synth.reverb.at[side][line];
                const float delayed = delay[at];
                echo += delayed;
                // A feedback too small to hear is cut, or the tail would never quite end.
                const float fed = sample + delayed * 0.72F;
                delay[at] = std::fabs(fed) < 1e-6F ? 0.0F : fed;
                at = at + 1 == delay.size() ? 0 : at + 1;
            }
            sample += echo * 0.06F;
        }
    }
}

// Keeps loud chords within bounds without a hard edge.
static float LimitSample(float sample) {
    const float level = std::fabs(sample);
    if (level <= 0.6F) return sample;
    const float limited = 0.6F + 0.4F * std::tanh((level - 0.6F) / 0.4F);
    return std::copysign(limited, sample);
}

void RenderSynth(Synth& synth, float* frames, int frameCount) {
    std::fill(frames, frames + 2 * frameCount, 0.0F);
    std::vector<float> mono(static_cast<size_t>(frameCount));
    for (Voice& voice : synth.voices) {
        if (!voice.active) continue;
        std::fill(mono.begin(), mono.end(), 0.0F);
        if (voice.channel == kDrumChannel)
            MixDrum(synth, voice, mono.data(), frameCount);
        else
            MixTone(synth, voice, mono.data(), frameCount);
        const Channel& channel = synth.channels[voice.channel];
        const float level = channel.volume * channel.expression;
        const float left = level * std::cos(channel.pan * kPi / 2);
        const float right = level * std::sin(channel.pan * kPi / 2);
        for (int i = 0; i < frameCount; ++i) {
            frames[2 * i] += mono[static_cast<size_t>(i)] * left;
            frames[2 * i + 1] += mono[static_cast<size_t>(i)] * right;
        }
    }
    AddReverb(synth, frames, frameCount);
    for (int i = 0; i < 2 * frameCount; ++i)
        frames[i] = LimitSample(frames[i]);
}

int16_t ToSample16(float sample) {
    const float scaled = std::nearbyint(std::clamp(sample, -1.0F, 1.0F) * 32767.0F);
    return static_cast<int16_t>(scaled);
}
