// Draws small cartoons of 256 colours and packs them as AVI files.
#pragma once

#include "demo/media/byte_writer.h"

struct Cartoon {
    int width;
    int height;
    int frameCount;
    int framesPerSecond;
    bool runLength;  // run-length coded instead of plain 8-bit pictures
};

// monoSamples is the sound, 22,050 Hz; empty for a silent film. It is cut or filled up with silence
// to the length of the pictures.
Bytes PackCartoon(const Cartoon& cartoon, const std::vector<int16_t>& monoSamples);
