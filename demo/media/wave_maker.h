// Renders pieces with the demo's synthesizer and packs them as PCM wave files.
#pragma once

#include "demo/media/byte_writer.h"
#include "demo/media/composer.h"

struct WaveForm {
    int sampleRate;     // 8000 to 48000 Hz
    int channels;       // 1 or 2
    int bitsPerSample;  // 8 or 16
};

// Interleaved stereo of exactly frameCount frames, peak at nine tenths of full level; the last 60
// ms fade to silence.
std::vector<int16_t> RenderPiece(const Piece& piece, int sampleRate, size_t frameCount);

// A whole wave file of the stereo frames in the given form.
Bytes PackWave(const std::vector<int16_t>& stereo, const WaveForm& form);
