// Writes wave files with a plain 16-byte format chunk.
#include "resources/art/wave_file.h"

#include "resources/art/picture.h"

static void AppendTag(std::vector<std::uint8_t>& bytes, const char* tag) {
    for (int i = 0; i < 4; ++i)
        bytes.push_back(static_cast<std::uint8_t>(tag[i]));
}

bool WriteWave(const std::string& path, const std::vector<std::int16_t>& samples) {
    constexpr int kBytesPerSample = 2;
    const auto dataSize = static_cast<std::uint32_t>(samples.size() * kBytesPerSample);
    std::vector<std::uint8_t> bytes;
    AppendTag(bytes, "RIFF");
    AppendLittleEndian(bytes, 36 + dataSize, 4);
    AppendTag(bytes, "WAVE");
    AppendTag(bytes, "fmt ");
    AppendLittleEndian(bytes, 16, 4);
    AppendLittleEndian(bytes, 1, 2);  // PCM
    AppendLittleEndian(bytes, 1, 2);  // channels
    AppendLittleEndian(bytes, kSampleRate, 4);
    AppendLittleEndian(bytes, kSampleRate * kBytesPerSample, 4);
    AppendLittleEndian(bytes, kBytesPerSample, 2);
    AppendLittleEndian(bytes, 8 * kBytesPerSample, 2);
    AppendTag(bytes, "data");
    AppendLittleEndian(bytes, dataSize, 4);
    for (const std::int16_t sample : samples) {
        AppendLittleEndian(bytes, static_cast<std::uint16_t>(sample), kBytesPerSample);
    }
    return WriteBytes(path, bytes);
}
