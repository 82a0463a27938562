// The disc's sound: wave files of any form become the disc's own, damaged ones silence.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <sstream>

#include "demo/drive/disc.h"

static void AppendNumber(std::string& bytes, uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 255);
}

// A wave file in the given form with the samples of each frame from a function of the frame's
// number.
static std::string Wave(uint32_t rate, uint32_t channels, uint32_t bits, uint32_t frames,
                        int (*sampleAt)(uint32_t frame, uint32_t channel)) {
    std::string data;
    for (uint32_t frame = 0; frame < frames; ++frame) {
        for (uint32_t channel = 0; channel < channels; ++channel) {
            const int sample = sampleAt(frame, channel);
            const int stored = bits == 8 ? sample / 256 + 128 : sample;
            AppendNumber(data, static_cast<uint32_t>(stored), static_cast<int>(bits / 8));
        }
    }
    std::string file = "RIFF....WAVELIST";
    AppendNumber(file, 3, 4);
    file += "odd.";  // a chunk of odd length in front, with its padding
    file += "fmt ";
    AppendNumber(file, 16, 4);
    AppendNumber(file, 1, 2);
    AppendNumber(file, channels, 2);
    AppendNumber(file, rate, 4);
    AppendNumber(file, rate * channels * bits / 8, 4);
    AppendNumber(file, channels * bits / 8, 2);
    AppendNumber(file, bits, 2);
    file += "data";
    AppendNumber(file, static_cast<uint32_t>(data.size()), 4);
    return file + data;
}

static int Constant(uint32_t /*frame*/, uint32_t channel) {
    return channel == 0 ? 12800 : -6400;
}

static int Ramp(uint32_t frame, uint32_t /*channel*/) {
    return static_cast<int>(frame % 30000);
}

TEST(WaveSource, EveryFormBecomesTheDiscsOwn) {
    for (const uint32_t rate : {8000U, 22050U, 44100U, 48000U}) {
        for (const uint32_t channels : {1U, 2U}) {
            for (const uint32_t bits : {8U, 16U}) {
                std::istringstream file(Wave(rate, channels, bits, rate, Constant));
                WaveSource source;
                ASSERT_TRUE(ReadWaveHeader(file, source));
                EXPECT_EQ(WaveSectors(source), 75U) << rate;
                int16_t samples[2 * kSectorFrames];
                for (const uint32_t sector : {0U, 37U, 74U}) {
                    ReadWaveSector(file, source, sector, samples);
                    for (int i = 0; i < kSectorFrames - 12; ++i) {
                        ASSERT_EQ(samples[2 * i], 12800) << rate << " sector " << sector;
                        ASSERT_EQ(samples[2 * i + 1], channels == 1 ? 12800 : -6400);
                    }
                }
                ReadWaveSector(file, source, 75, samples);
                EXPECT_EQ(samples[0], 0) << "silence behind the end";
            }
        }
    }
}

TEST(WaveSource, SectorsJoinWithoutASeam) {
    std::istringstream file(Wave(22050, 1, 16, 22050, Ramp));
    WaveSource source;
    ASSERT_TRUE(ReadWaveHeader(file, source));
    int previous = -1;
    for (uint32_t sector = 0; sector < 70; ++sector) {
        int16_t samples[2 * kSectorFrames];
        ReadWaveSector(file, source, sector, samples);
        for (int i = 0; i < kSectorFrames; ++i) {
            // Half a step a frame: each sample is the one before or one more.
            ASSERT_LE(std::abs(samples[2 * i] - previous), 1) << sector << " frame " << i;
            previous = samples[2 * i];
        }
    }
    EXPECT_NEAR(previous, 70 * kSectorFrames / 2, 1);
}

TEST(Disc, TracksComeFromFilesTonesAndSilence) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "tarnwell-disc-test";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "a.wav", std::ios::binary) << Wave(44100, 2, 16, 44100, Constant);
    std::ofstream(folder / "disc.cue")
        << "FILE a.wav WAVE\nTRACK 1 AUDIO\nINDEX 01 00:00:00\nTRACK 2 AUDIO\nINDEX 01 00:00:30\n"
           "FILE gone.wav WAVE\nTRACK 3 AUDIO\nINDEX 01 00:00:00\n"
           "TRACK 4 AUDIO\nREM TONE 441\nREM LENGTH 00:02:00\n"
           "TRACK 5 MODE1/2048\nREM TONE 441\nREM LENGTH 00:01:00\n"
           "TRACK 6 AUDIO\nREM LENGTH 00:01:00\n";
    Disc disc;
    ASSERT_TRUE(LoadDisc(folder / "disc.cue", disc));
    const uint32_t expected[] = {30, 45, 0, 150, 75, 75};
    ASSERT_EQ(disc.layout.tracks.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(disc.layout.tracks[i].sectors, expected[i]) << "track " << i + 1;

    OpenTrackFile open;
    int16_t samples[2 * kSectorFrames];
    const auto loudest = [&](uint32_t sector) {
        ReadDiscSector(disc, open, sector, samples);
        return *std::max_element(std::begin(samples), std::end(samples));
    };
    EXPECT_EQ(loudest(0), 12800);
    EXPECT_EQ(loudest(74), 12800);
    EXPECT_NEAR(loudest(75), 6000, 60) << "the tone";
    EXPECT_NEAR(loudest(224), 6000, 60);
    EXPECT_EQ(loudest(225), 0) << "data";
    EXPECT_EQ(loudest(300), 0) << "silence";
    EXPECT_EQ(loudest(375), 0) << "behind the end";
    std::filesystem::remove_all(folder);
    Disc untouched = disc;
    EXPECT_FALSE(LoadDisc(folder / "disc.cue", disc));
    EXPECT_EQ(disc.layout.sectors, untouched.layout.sectors);
}
