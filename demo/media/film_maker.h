// Packs pictures and sound as a QuickTime file that stores both as they are.
#pragma once

#include <functional>

#include "demo/media/byte_writer.h"

struct FilmSketch {
    int width;
    int height;
    int frameCount;
    int framesPerSecond;
};

// One picture: red, green, blue, rows from the top, width * height * 3 bytes.
using DrawFilmFrame = std::function<Bytes(int frame)>;

// monoSamples is the sound, 16 bits; empty for a silent film. It is cut or filled up with silence
// to the length of the pictures.
Bytes PackFilm(const FilmSketch& film, const DrawFilmFrame& draw,
               const std::vector<int16_t>& monoSamples, int sampleRate);
