// The chunks of a wave file, and the change of sample rate by straight lines between samples.
#include "demo/drive/wave_source.h"

#include <algorithm>
#include <cstring>
#include <vector>

static constexpr int kMaxChunks = 1000;

static uint32_t Little(const uint8_t* bytes, int count) {
    uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | bytes[i];
    return value;
}

static bool ReadBytes(std::istream& file, uint8_t* bytes, size_t count) {
    file.read(reinterpret_cast<char*>(bytes), static_cast<std::streamsize>(count));
    return file.good();
}

static bool ReadFormat(std::istream& file, uint32_t size, WaveSource& source) {
    uint8_t format[16];
    if (size < sizeof format || !ReadBytes(file, format, sizeof format) || Little(format, 2) != 1)
        return false;
    source.channels = Little(format + 2, 2);
    source.sampleRate = Little(format + 4, 4);
    source.bytesPerSample = Little(format + 14, 2) / 8;
    return source.channels >= 1 && source.channels <= 2 && source.sampleRate >= 4000 &&
           source.sampleRate <= 192000 && source.bytesPerSample >= 1 &&
           source.bytesPerSample <= 2 && Little(format + 14, 2) % 8 == 0;
}

bool ReadWaveHeader(std::istream& file, WaveSource& source) {
    file.clear();
    file.seekg(0, std::ios::end);
    const auto fileBytes = static_cast<uint64_t>(std::max<std::streamoff>(file.tellg(), 0));
    file.seekg(0);
    uint8_t head[12];
    if (!ReadBytes(file, head, sizeof head) || std::memcmp(head, "RIFF", 4) != 0 ||
        std::memcmp(head + 8, "WAVE", 4) != 0)
        return false;
    WaveSource found;
    uint64_t at = sizeof head;
    for (int chunk = 0; chunk < kMaxChunks; ++chunk) {
        uint8_t chunkHead[8];
        file.seekg(static_cast<std::streamoff>(at));
        if (!ReadBytes(file, chunkHead, sizeof chunkHead)) return false;
        const uint32_t size = Little(chunkHead + 4, 4);
        at += sizeof chunkHead;
        if (std::memcmp(chunkHead, "fmt ", 4) == 0 && !ReadFormat(file, size, found)) return false;
        if (std::memcmp(chunkHead, "data", 4) == 0) {
            if (found.sampleRate == 0) return false;
            const uint64_t bytes = std::min<uint64_t>(size, fileBytes - at);
            found.dataOffset = at;
            found.frameCount =
                static_cast<uint32_t>(bytes / (found.channels * found.bytesPerSample));
            source = found;
            return true;
        }
        at += uint64_t{size} + size % 2;
    }
    return false;
}

uint32_t WaveSectors(const WaveSource& source) {
    const uint64_t discFrames =
        (uint64_t{source.frameCount} * kDiscSampleRate + source.sampleRate - 1) / source.sampleRate;
    return static_cast<uint32_t>((discFrames + kSectorFrames - 1) / kSectorFrames);
}

static int SampleAt(const WaveSource& source, const std::vector<uint8_t>& bytes, uint64_t frame,
                    uint32_t channel) {
    const size_t at =
        static_cast<size_t>(frame * source.channels + std::min(channel, source.channels - 1)) *
        source.bytesPerSample;
    if (at + source.bytesPerSample > bytes.size()) return 0;
    if (source.bytesPerSample == 1) return (bytes[at] - 128) * 256;
    return static_cast<int16_t>(Little(&bytes[at], 2));
}

void ReadWaveSector(std::istream& file, const WaveSource& source, uint32_t sector,
                    int16_t (&samples)[2 * kSectorFrames]) {
    std::fill(std::begin(samples), std::end(samples), int16_t{0});
    const uint64_t firstDiscFrame = uint64_t{sector} * kSectorFrames;
    const uint64_t first = firstDiscFrame * source.sampleRate / kDiscSampleRate;
    const uint64_t last =
        (firstDiscFrame + kSectorFrames) * source.sampleRate / kDiscSampleRate + 1;
    if (first >= source.frameCount) return;
    const uint64_t count = std::min<uint64_t>(last + 1, source.frameCount) - first;
    const uint32_t frameBytes = source.channels * source.bytesPerSample;
    std::vector<uint8_t> bytes(static_cast<size_t>(count * frameBytes));
    file.clear();
    file.seekg(static_cast<std::streamoff>(source.dataOffset + first * frameBytes));
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(file.gcount()));
    for (int i = 0; i < kSectorFrames; ++i) {
        // In units of 1 / 44,100 of a source frame.
        const uint64_t exact = (firstDiscFrame + static_cast<uint64_t>(i)) * source.sampleRate;
        const uint64_t frame = exact / kDiscSampleRate - first;
        const int share = static_cast<int>(exact % kDiscSampleRate);
        for (uint32_t channel = 0; channel < 2; ++channel) {
            const int here = SampleAt(source, bytes, frame, channel);
            const int next = SampleAt(source, bytes, frame + 1, channel);
            const int64_t step = int64_t{next - here} * share / kDiscSampleRate;
            samples[2 * i + static_cast<int>(channel)] = static_cast<int16_t>(here + step);
        }
    }
}
