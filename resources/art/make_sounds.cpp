// Makes the click sounds: make_sounds OUTPUT_FOLDER. Prints a table of their lengths and levels.
// As with the pictures, only exactly rounded arithmetic is used, so every build makes the same
// files.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "resources/art/shapes.h"
#include "resources/art/sound_score.h"
#include "resources/art/wave_file.h"

static std::size_t SampleCount(double ms) {
    return static_cast<std::size_t>(ms * kSampleRate / 1000);
}

static double Hertz(double semitones) {
    constexpr double kSemitone = 1.0594630943592953;
    double hertz = 220;
    for (; semitones >= 1; semitones -= 1)
        hertz *= kSemitone;
    for (; semitones <= -1; semitones += 1)
        hertz /= kSemitone;
    return hertz * (1 + semitones * (kSemitone - 1));
}

// From 1 to 0 over the length of a note: fast at first, then slowly, and without a step at the end.
static double Decay(double part, double sharpness) {
    const double left = std::max(0.0, 1 - part);
    return left * left / (1 + sharpness * part);
}

struct Partial {
    double ratio;
    double level;
    double sharpness;
};

static const std::vector<Partial>& Partials(Voice voice) {
    static const std::vector<Partial> kTine = {
        {1, 1, 3}, {2, 0.22, 5}, {2.756, 0.28, 14}, {5.404, 0.12, 40}};
    static const std::vector<Partial> kWood = {{1, 1, 8}, {2.41, 0.5, 16}, {4.1, 0.25, 40}};
    static const std::vector<Partial> kMuted = {{0.5, 0.5, 4}, {1, 1, 6}, {2, 0.15, 24}};
    static const std::vector<Partial> kNone;
    switch (voice) {
        case Voice::kTine:
            return kTine;
        case Voice::kWood:
            return kWood;
        case Voice::kMuted:
            return kMuted;
        case Voice::kBrush:
            break;
    }
    return kNone;
}

static void AddStruck(std::vector<double>& mix, const Note& note) {
    const std::size_t first = SampleCount(note.startMs);
    const std::size_t count = std::min(SampleCount(note.lengthMs), mix.size() - first);
    constexpr double kRiseSamples = 1.5 * kSampleRate / 1000;
    double turns = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(count);
        const double rise = std::min(1.0, static_cast<double>(i) / kRiseSamples);
        double sum = 0;
        for (const Partial& partial : Partials(note.voice)) {
            sum += partial.level * Decay(part, partial.sharpness) * Sine(turns * partial.ratio);
        }
        mix[first + i] += note.level * rise * sum;
        turns += Hertz(note.pitch + note.slide * part) / kSampleRate;
    }
}

// Noise through a resonance at the pitch: a soft sweep rather than a hiss.
static void AddBrushed(std::vector<double>& mix, const Note& note) {
    const std::size_t first = SampleCount(note.startMs);
    const std::size_t count = std::min(SampleCount(note.lengthMs), mix.size() - first);
    std::uint32_t random = 12345;
    double low = 0;
    double band = 0;
    for (std::size_t i = 0; i < count; ++i) {
        random = random * 1664525u + 1013904223u;
        const double noise = static_cast<double>(random >> 16) / 32768 - 1;
        const double part = static_cast<double>(i) / static_cast<double>(count);
        const double turn = Hertz(note.pitch + 12 + note.slide * part) / kSampleRate;
        const double tune = 2 * Sine(std::min(turn / 2, 0.12));
        low += tune * band;
        band += tune * (noise - low - 0.35 * band);
        const double swell = 4 * part * (1 - part);
        mix[first + i] += note.level * 0.45 * swell * band;
    }
}

// The level of the loudest stretch of 30 ms, which is what the ear compares in short sounds.
static double LoudestStretch(const std::vector<double>& mix) {
    const std::size_t window = std::min(mix.size(), SampleCount(30));
    double sum = 0;
    double most = 0;
    for (std::size_t i = 0; i < mix.size(); ++i) {
        sum += mix[i] * mix[i];
        if (i >= window) sum -= mix[i - window] * mix[i - window];
        most = std::max(most, sum);
    }
    return std::sqrt(most / static_cast<double>(window));
}

static double Peak(const std::vector<double>& mix) {
    double peak = 0;
    for (const double sample : mix)
        peak = std::max(peak, std::fabs(sample));
    return peak;
}

// Equal loudness for all, and no peak above half of full scale.
static std::vector<std::int16_t> Level(std::vector<double> mix) {
    constexpr double kLoudness = 0.13;
    constexpr double kHighestPeak = 0.495;
    const double scale = std::min(kLoudness / LoudestStretch(mix), kHighestPeak / Peak(mix));
    std::vector<std::int16_t> samples;
    const double rampSamples = 2.0 * kSampleRate / 1000;
    for (std::size_t i = 0; i < mix.size(); ++i) {
        const double toEnd = static_cast<double>(std::min(i, mix.size() - 1 - i));
        const double ramp = std::min(1.0, toEnd / rampSamples);
        samples.push_back(
            static_cast<std::int16_t>(std::floor(mix[i] * scale * ramp * 32767 + 0.5)));
    }
    return samples;
}

static std::vector<std::int16_t> Play(const Sound& sound) {
    std::vector<double> mix(SampleCount(sound.lengthMs), 0.0);
    for (const Note& note : sound.notes) {
        if (note.voice == Voice::kBrush) {
            AddBrushed(mix, note);
        } else {
            AddStruck(mix, note);
        }
    }
    return Level(std::move(mix));
}

// Decibels below full scale, in tenths, by halving: for the table only.
static double Decibels(double level) {
    double decibels = 0;
    if (level <= 0) return -99;
    for (; level < 1; level *= 1.0115794542598986)
        decibels -= 0.1;
    return decibels;
}

static void PrintRow(const Sound& sound, const std::vector<std::int16_t>& samples) {
    std::vector<double> mix;
    double squares = 0;
    for (const std::int16_t sample : samples) {
        mix.push_back(sample / 32768.0);
        squares += mix.back() * mix.back();
    }
    std::printf("%3d  %-12s %6.0f  %8.1f  %8.1f  %8.1f  %5d  %5d\n", sound.id, sound.name,
                1000.0 * static_cast<double>(samples.size()) / kSampleRate, Decibels(Peak(mix)),
                Decibels(std::sqrt(squares / static_cast<double>(mix.size()))),
                Decibels(LoudestStretch(mix)), samples.front(), samples.back());
}

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_sounds OUTPUT_FOLDER\n");
        return 2;
    }
    std::printf(" id  name         len ms   peak dB    RMS dB  30 ms dB  first   last\n");
    for (const Sound& sound : ClickSounds()) {
        const std::vector<std::int16_t> samples = Play(sound);
        const std::string path = std::string(argv[1]) + "/" + sound.name + ".wav";
        if (!WriteWave(path, samples)) {
            std::fprintf(stderr, "cannot write %s\n", path.c_str());
            return 1;
        }
        PrintRow(sound, samples);
    }
    return 0;
}
