// Wave files: 22,050 samples a second, one channel, 16 bits.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

constexpr int kSampleRate = 22050;

// Returns false when the file cannot be written.
bool WriteWave(const std::string& path, const std::vector<std::int16_t>& samples);
