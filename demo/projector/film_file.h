// Reads QuickTime files whose pictures and sound are stored as they are: raw RGB pictures, linear
// PCM.
#pragma once

#include <cstdint>
#include <istream>
#include <vector>

struct FilmFrame {
    uint64_t offset;   // of its picture in the file
    uint32_t startMs;  // when it is shown
};

// A stretch of sound that lies together in the file.
struct SoundPiece {
    uint64_t offset;
    uint64_t firstFrame;  // the frames before it
};

struct FilmSound {
    uint32_t sampleRate = 0;  // 4000 to 192000; 0 for a silent film
    uint32_t channels = 0;    // 1 or 2
    uint32_t bytesPerSample = 0;
    bool isLittleEndian = false;
    std::vector<SoundPiece> pieces;
    uint64_t frameCount = 0;
};

struct Film {
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t bytesPerPixel = 0;  // 3: red, green, blue; 4: one byte unused before them
    uint32_t lengthMs = 0;       // 1 to 2^31 - 1
    std::vector<FilmFrame> frames;
    FilmSound sound;
};

constexpr size_t kMaxFilmFrames = 1 << 20;

// False when the stream holds no film that can be shown whole: another kind of pictures, tables
// that do not fit each other, places beyond the end of the file. film is untouched then. Sound of
// another kind, or beyond the end, makes a silent film.
bool ReadFilm(std::istream& file, Film& film);

// The frame that is shown at a time; the last one from there on.
uint32_t FrameAt(const Film& film, uint32_t milliseconds);
// When a frame begins; the film's length for one behind the last.
uint32_t FrameStart(const Film& film, uint32_t frame);

// One picture as a bitmap has it: blue, green, red, rows from the top, each filled up to a multiple
// of four bytes. False when the file does not give it.
bool ReadPicture(std::istream& file, const Film& film, uint32_t frame, std::vector<uint8_t>& rows);

// Up to `count` frames of sound from `first` on as 16-bit samples, both channels if there are two.
// Says how many there are; what the file does not give is silence.
uint32_t ReadSound(std::istream& file, const FilmSound& sound, uint64_t first, uint32_t count,
                   int16_t* samples);
