// What each click sound plays: a few notes on one small set of struck instruments, so that all of
// them are heard as parts of the same machine.
#pragma once

#include <vector>

enum class Voice {
    kTine,   // a plucked metal tongue with a glassy overtone: things that open and succeed
    kWood,   // a hollow block: plain clicks
    kMuted,  // a tongue under a finger: things that close or are refused
    kBrush   // soft noise: sliding and sweeping
};

struct Note {
    Voice voice;
    double startMs;
    double lengthMs;  // until it has died away
    double pitch;     // semitones above the A of 220 Hz; for the brush, of the colour of the noise
    double slide;     // semitones the pitch moves until the end
    double level;     // relative to the other notes of the sound
};

struct Sound {
    int id;
    const char* name;  // of the file
    double lengthMs;
    std::vector<Note> notes;
};

std::vector<Sound> ClickSounds();
