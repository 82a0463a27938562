// See media_header.h.
#include "playback/media_header.h"

#include <cstring>
#include <optional>

// A file of nothing but tiny chunks is not searched to its end.
constexpr int kMostChunks = 10'000;

constexpr size_t kChunkHeader = 8;
constexpr size_t kFormName = 4;

static uint32_t LittleEndian32(const uint8_t* bytes) {
    return static_cast<uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16) |
           static_cast<uint32_t>(bytes[3]) << 24;
}

static bool IsNamed(const uint8_t* bytes, const char* name) {
    return memcmp(bytes, name, 4) == 0;
}

// Where the content of the first chunk of that name begins. `offset` is where a chunk begins.
static std::optional<uint64_t> FindChunk(const ReadFileAt& read, uint64_t offset,
                                         const char* name) {
    for (int i = 0; i < kMostChunks; ++i) {
        uint8_t header[kChunkHeader];
        if (read(offset, header, sizeof header) != sizeof header) return std::nullopt;
        if (IsNamed(header, name)) return offset + kChunkHeader;
        const uint64_t size = LittleEndian32(header + 4);
        offset += kChunkHeader + size + size % 2;
    }
    return std::nullopt;
}

static bool IsWaveStandingStill(const ReadFileAt& read, uint64_t format) {
    uint8_t fields[14];
    if (read(format, fields, sizeof fields) != sizeof fields) return false;
    const int channels = fields[2] | fields[3] << 8;
    const uint32_t bytesPerSecond = LittleEndian32(fields + 8);
    const int bytesPerBlock = fields[12] | fields[13] << 8;
    return channels == 0 || bytesPerSecond == 0 || bytesPerBlock == 0;
}

static bool IsSongStandingStill(const ReadFileAt& read, uint64_t offset) {
    uint8_t header[14];
    if (read(offset, header, sizeof header) != sizeof header) return false;
    return IsNamed(header, "MThd") && header[12] == 0 && header[13] == 0;
}

bool WouldDivideByZero(const ReadFileAt& read) {
    if (IsSongStandingStill(read, 0)) return true;
    const std::optional<uint64_t> riff = FindChunk(read, 0, "RIFF");
    uint8_t form[kFormName];
    if (!riff || read(*riff, form, sizeof form) != sizeof form) return false;
    if (IsNamed(form, "WAVE")) {
        const std::optional<uint64_t> format = FindChunk(read, *riff + kFormName, "fmt ");
        return format && IsWaveStandingStill(read, *format);
    }
    if (IsNamed(form, "RMID")) {
        const std::optional<uint64_t> song = FindChunk(read, *riff + kFormName, "data");
        return song && IsSongStandingStill(read, *song);
    }
    return false;
}
