// The pieces that the demo plays, as sketches for the composer.
#pragma once

#include <span>

#include "demo/media/composer.h"

struct WaveSketch {
    const char* fileName;
    int sampleRate;
    int channels;
    int bitsPerSample;
    uint32_t milliseconds;
    Sketch sketch;
};

struct MidiSketch {
    const char* fileName;
    Sketch sketch;
};

struct DiscTrack {
    uint32_t milliseconds;
    Sketch sketch;
};

struct DemoDisc {
    const char* folder;
    const char* artist;
    const char* title;
    std::span<const DiscTrack> tracks;
};

std::span<const WaveSketch> WaveSketches();
std::span<const MidiSketch> MidiSketches();

// The first disc is the one the demo catalogue knows.
std::span<const DemoDisc> DemoDiscs();
