// The disc's sound: wave files of any form become the disc's own, damaged ones silence.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "demo/drive/disc.h"
#include "demo/media/wave_maker.h"

// One second, its samples from a function of the frame's number; behind the header's first words a
// chunk of odd length with its padding.
static std::string Wave(const WaveForm& form, int16_t (*sampleAt)(int frame, int channel)) {
    std::vector<int16_t> stereo;
    for (int i = 0; i < 2 * form.sampleRate; ++i)
        stereo.push_back(sampleAt(i / 2, form.channels == 1 ? 0 : i % 2));
    const Bytes bytes = PackWave(stereo, form);
    std::string file(bytes.begin(), bytes.end());
    return file.insert(12, std::string("LIST\3\0\0\0odd.", 12));
}

static int16_t Constant(int /*frame*/, int channel) {
    return channel == 0 ? 12800 : -6400;
}

TEST(WaveSource, EveryFormBecomesTheDiscsOwn) {
    for (const WaveForm& form :
         {WaveForm{8000, 1, 8}, {22050, 2, 8}, {44100, 2, 16}, {48000, 1, 16}}) {
        SCOPED_TRACE(form.sampleRate);
        std::istringstream file(Wave(form, Constant));
        WaveSource source;
        ASSERT_TRUE(ReadWaveHeader(file, source));
        EXPECT_EQ(WaveSectors(source), 75U);
        int16_t samples[2 * kSectorFrames];
        for (const uint32_t sector : {0U, 37U, 74U}) {
            ReadWaveSector(file, source, sector, samples);
            for (int i = 0; i < kSectorFrames - 12; ++i) {
                ASSERT_EQ(samples[2 * i], 12800) << "sector " << sector;
                ASSERT_EQ(samples[2 * i + 1], form.channels == 1 ? 12800 : -6400);
            }
        }
        ReadWaveSector(file, source, 75, samples);
        EXPECT_EQ(samples[0], 0) << "silence behind the end";
    }
}

TEST(WaveSource, SectorsJoinWithoutASeam) {
    const auto ramp = [](int frame, int) { return static_cast<int16_t>(frame); };
    std::istringstream file(Wave({22050, 1, 16}, ramp));
    WaveSource source;
    ASSERT_TRUE(ReadWaveHeader(file, source));
    int previous = -1;
    for (uint32_t sector = 0; sector < 70; ++sector) {
        int16_t samples[2 * kSectorFrames];
        ReadWaveSector(file, source, sector, samples);
        // Half a step a frame: each sample is the one before or one more.
        for (int i = 0; i < kSectorFrames; ++i) {
            ASSERT_LE(std::abs(samples[2 * i] - previous), 1) << sector << " frame " << i;
            previous = samples[2 * i];
        }
    }
    EXPECT_NEAR(previous, 70 * kSectorFrames / 2, 1);
}

TEST(Disc, TracksComeFromFilesTonesAndSilence) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "tarnwell-disc-test";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "a.wav", std::ios::binary) << Wave({44100, 2, 16}, Constant);
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
    // The file, the tone, data, silence, nothing.
    for (const auto& [sector, level] : {std::pair{0U, 12800},
                                        {74U, 12800},
                                        {75U, 6000},
                                        {224U, 6000},
                                        {225U, 0},
                                        {300U, 0},
                                        {375U, 0}})
        EXPECT_NEAR(loudest(sector), level, level == 6000 ? 60 : 0) << sector;
    std::filesystem::remove_all(folder);
    Disc untouched = disc;
    EXPECT_FALSE(LoadDisc(folder / "disc.cue", disc));
    EXPECT_EQ(disc.layout.sectors, untouched.layout.sectors);
}
