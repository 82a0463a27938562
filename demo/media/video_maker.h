// Draws small cartoons of 256 colours and packs them as AVI or QuickTime files.
#pragma once

#include "demo/media/byte_writer.h"

enum class Scene { kBall, kBoat };

struct Cartoon {
    int width;
    int height;
    int frameCount;
    int framesPerSecond;
    bool runLength;  // AVI: run-length coded instead of plain 8-bit pictures
    Scene scene = Scene::kBall;
};

// monoSamples is the sound, 22,050 Hz; empty for a silent film. It is cut or filled up with silence
// to the length of the pictures.
Bytes PackCartoon(const Cartoon& cartoon, const std::vector<int16_t>& monoSamples);

// The same as a QuickTime file: 24-bit pictures as they are, 16-bit sound.
Bytes PackCartoonFilm(const Cartoon& cartoon, const std::vector<int16_t>& monoSamples);
