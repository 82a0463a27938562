// Headers that would stop the platform's clock, and headers that are none of the program's
// business.
#include "playback/media_header.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

using std::string_literals::operator""s;

static std::string Number(uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> 8 * i);
    return text;
}

static std::string Chunk(const std::string& name, const std::string& content) {
    const auto size = static_cast<uint32_t>(content.size());
    return name + Number(size, 4) + content + std::string(size % 2, '\0');
}

static std::string Format(uint32_t bytesPerSecond, uint32_t bytesPerBlock) {
    return Chunk("fmt ", Number(1, 2) + Number(1, 2) + Number(22050, 4) +
                             Number(bytesPerSecond, 4) + Number(bytesPerBlock, 2) + Number(16, 2));
}

static std::string Wave(const std::string& chunks) {
    return Chunk("RIFF", "WAVE" + chunks);
}

static std::string Song(const std::string& division) {
    return "MThd\0\0\0\6\0\0\0\1"s + division + "MTrk";
}

TEST(MediaHeader, OnlyAStandingClockIsRefused) {
    const std::string odd = Chunk("LIST", "odd");
    const struct {
        const char* name;
        bool refused;
        std::string bytes;
    } cases[] = {
        {"no bytes a second", true, Wave(Format(0, 2))},
        {"no bytes a block", true, Wave(Format(44100, 0))},
        {"no channels", true, Wave(Format(44100, 2).replace(10, 2, 2, '\0'))},
        {"one byte of each", false, Wave(Format(1, 1))},
        {"high bytes alone", false, Wave(Format(0x80000000, 0x8000))},
        {"behind a padded chunk", true, Wave(odd + Format(0, 2))},
        {"behind another file", true, odd + Wave(Format(0, 2))},
        {"the first format counts", false, Wave(Format(44100, 2) + Format(0, 0))},
        {"cut format", false, Wave(Format(0, 0)).substr(0, 33)},
        {"chunk beyond the end", false, Wave("LIST\xff\xff\xff\xff" + Format(0, 0))},
        {"film", false, Chunk("RIFF", "AVI " + Format(0, 0) + Chunk("data", Song("\0\0"s)))},
        {"song in frames", false, Song("\xe8\0"s)},
        {"song without ticks", true, Song("\0\0"s)},
        {"song in a box", false, Chunk("RIFF", "RMID" + Chunk("data", Song("\0\x60"s)))},
        {"the same without ticks", true, Chunk("RIFF", "RMID" + Chunk("data", Song("\0\0"s)))},
        {"cut song", false, Song("\0\0"s).substr(0, 13)},
        {"empty", false, ""},
    };
    for (const auto& c : cases) {
        const auto read = [&](uint64_t offset, void* bytes, size_t size) {
            const size_t from = std::min<uint64_t>(offset, c.bytes.size());
            return c.bytes.copy(static_cast<char*>(bytes), size, from);
        };
        EXPECT_EQ(WouldDivideByZero(read), c.refused) << c.name;
    }
}

TEST(MediaHeader, AFileOfEmptyChunksIsGivenUp) {
    int reads = 0;
    const auto read = [&](uint64_t, void* bytes, size_t size) {
        memset(bytes, 0, size);
        return ++reads < 1'000'000 ? size : 0;
    };
    EXPECT_FALSE(WouldDivideByZero(read));
    EXPECT_LT(reads, 100'000);
}
