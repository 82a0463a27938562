// Makes small pieces of music: a sketch of a few numbers becomes a melody, an accompaniment and a
// bass.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Note {
    double beat;   // from the start of the piece
    double beats;  // how long it is held
    uint8_t channel;
    uint8_t key;
    uint8_t velocity;
};

struct Piece {
    std::string title;
    double beatsPerMinute;
    double beats;  // of the whole piece
    std::vector<Note> notes;
    uint8_t programs[4];  // General MIDI programs of channels 0 to 3
};

enum class Accompaniment { kArpeggio, kWaltz, kMarch, kChords, kBroken };

struct Sketch {
    const char* title;
    int tonic;  // key of the home note, 60 is middle C
    bool minor;
    int beatsPerBar;  // 3 or 4
    double beatsPerMinute;
    int bars;
    const char* progression;  // roots as degrees 1 to 7, one a bar, repeated as long as needed
    Accompaniment accompaniment;
    uint8_t leadProgram;
    uint8_t chordProgram;
    bool drums;
    uint32_t seed;  // chooses the melody
};

Piece ComposePiece(const Sketch& sketch);

double PieceSeconds(const Piece& piece);
