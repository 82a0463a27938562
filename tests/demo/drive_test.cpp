// The virtual drive without MCI: sheets, places on the disc, its sound and what it does over time.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "demo/drive/disc.h"
#include "demo/drive/transport.h"
#include "demo/media/wave_maker.h"

using enum TimeFormat;

TEST(CueSheet, FaultsAreFoundAtTheirLineAndLeaveTheSheetAlone) {
    const std::string track = "FILE a.wav WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n";
    std::vector<std::pair<std::string, int>> cases = {
        {"", 0},
        {"TRACK 01 AUDIO\nINDEX 01 00:00:00\n", 0},  // no file
        {"FILE a.wav WAVE\nTRACK 01 AUDIO\n", 0},    // no beginning
        {"FILE\n", 1},
        {"FILE \"\" WAVE\n", 1},
        {"TRACK 02 AUDIO\n", 1},
        {"TRACK 1x AUDIO\n", 1},
        {"TRACK 99999999999 AUDIO\n", 1},
        {"INDEX 01 00:00:00\n", 1},
        {track + "INDEX 01 00:10:00\nTRACK 02 AUDIO\nINDEX 01 00:05:00\n", 6},
        {track + "TRACK 02 AUDIO\nTRACK 03 AUDIO\n", 5},
        {track + "REM LENGTH soon\n", 4},
        {track + "REM TONE 20001\n", 4},
        {std::string(kMaxCueBytes + 1, '\n'), 0},
    };
    for (const char* time : {"00:60:00", "00:00:75", "00:00", "-1:00:00", "4001:00:00"})
        cases.emplace_back(track + "INDEX 01 " + time + "\n", 4);
    for (const auto& [text, expected] : cases) {
        CueSheet sheet;
        sheet.files.push_back({"untouched", 7});
        int line = -1;
        EXPECT_FALSE(ParseCueSheet(text, sheet, line)) << text.substr(0, 200);
        EXPECT_EQ(line, expected) << text.substr(0, 200);
        EXPECT_EQ(sheet.files.size(), 1U);
    }
}

static uint32_t Packed(uint32_t a, uint32_t b, uint32_t c, uint32_t d = 0) {
    return a | b << 8 | c << 16 | d << 24;
}

TEST(DiscLayout, PlacesComeBackInEveryFormatAndThoseOffTheDiscAreRefused) {
    // 10 s, nothing, 1 min 0 s 74 f, 2 s.
    const DiscLayout disc = {{{0, 750, true}, {750, 0, true}, {750, 4574, true}, {5324, 150, true}},
                             5474};
    for (const TimeFormat format : {kMilliseconds, kMsf, kTmsf}) {
        for (uint32_t sector = 0; sector <= disc.sectors; ++sector) {
            uint32_t back = 0xFFFFFFFF;
            ASSERT_TRUE(UnpackPosition(disc, PackPosition(disc, sector, format), format, back));
            ASSERT_EQ(back, sector) << "format " << static_cast<int>(format);
        }
    }
    const struct {
        TimeFormat format;
        uint32_t packed;
        bool isOnDisc;
    } cases[] = {
        {kTmsf, Packed(0, 0, 0, 0), false},     {kTmsf, Packed(5, 0, 0, 0), false},
        {kTmsf, Packed(1, 0, 60, 0), false},    {kTmsf, Packed(1, 0, 0, 75), false},
        {kTmsf, Packed(4, 0, 2, 0), true},      {kTmsf, Packed(4, 0, 2, 1), false},
        {kTmsf, Packed(2, 0, 0, 0), true},      {kTmsf, Packed(1, 1, 0, 0), true},
        {kTmsf, Packed(1, 255, 59, 74), false}, {kMsf, Packed(0, 1, 74), false},
        {kMilliseconds, 1999, false},           {kMilliseconds, 0xFFFFFFFF, false},
    };
    for (const auto& [format, packed, isOnDisc] : cases) {
        uint32_t sector = 4711;
        EXPECT_EQ(UnpackPosition(disc, packed, format, sector), isOnDisc)
            << "format " << static_cast<int>(format) << " value " << std::hex << packed;
        EXPECT_EQ(sector == 4711, !isOnDisc);
    }
    // More minutes than a byte holds.
    EXPECT_EQ(PackLength(256 * 60 * kSectorsPerSecond, kMsf), Packed(255, 59, 74));
}

// One second that rises on the left and falls on the right; behind the header's first words a chunk
// of odd length with its padding.
constexpr int kRise = 24000;
static std::string Wave(const WaveForm& form) {
    std::vector<int16_t> stereo;
    for (int i = 0; i < form.sampleRate; ++i) {
        const auto left = static_cast<int16_t>(i * kRise / form.sampleRate);
        stereo.push_back(left);
        stereo.push_back(form.channels == 1 ? left : static_cast<int16_t>(-left));
    }
    const Bytes bytes = PackWave(stereo, form);
    std::string file(bytes.begin(), bytes.end());
    return file.insert(12, std::string("LIST\3\0\0\0odd.", 12));
}

TEST(WaveSource, EveryFormBecomesTheDiscsOwnWithoutASeam) {
    for (const WaveForm& form :
         {WaveForm{8000, 1, 16}, {22050, 2, 8}, {44100, 2, 16}, {48000, 1, 8}}) {
        SCOPED_TRACE(form.sampleRate);
        std::istringstream file(Wave(form));
        WaveSource source;
        ASSERT_TRUE(ReadWaveHeader(file, source));
        EXPECT_EQ(WaveSectors(source), 75U);
        const int step = form.bitsPerSample == 8 ? 256 : 1;
        int16_t samples[2 * kSectorFrames];
        for (const int sector : {0, 1, 37, 74}) {
            ReadWaveSector(file, source, static_cast<uint32_t>(sector), samples);
            const int last = sector == 74 ? 12 : 0;  // these fall to the silence behind the end
            for (int i = 0; i < kSectorFrames - last; ++i) {
                const int level = (sector * kSectorFrames + i) * int64_t{kRise} / 44100;
                ASSERT_NEAR(samples[2 * i], level, step) << sector << " frame " << i;
                ASSERT_NEAR(samples[2 * i + 1], form.channels == 1 ? level : -level, step);
            }
        }
        ReadWaveSector(file, source, 75, samples);
        EXPECT_EQ(samples[0], 0) << "silence behind the end";
    }
}

TEST(Disc, TracksComeFromFilesTonesAndSilence) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "tarnwell-disc-test";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "one file.wav", std::ios::binary) << Wave({44100, 2, 16});
    std::ofstream(folder / "disc.cue")
        << "\xEF\xBB\xBFREM GENRE none\r\nPERFORMER \"Somebody\"\r\n"
           "FILE \"one file.wav\" WAVE\r\n"
           "  TRACK 01 AUDIO\r\n    TITLE \"First\"\r\n    INDEX 01 00:00:00\r\n"
           "  track 2 audio\n    index 00 00:00:20\n    index 01 00:00:30\n"
           "FILE gone.wav WAVE\nTRACK 3 AUDIO\nINDEX 01 00:00:00\n"
           "TRACK 4 AUDIO\nREM TONE 441\nREM LENGTH 00:02:00\n"
           "TRACK 5 MODE1/2048\nREM TONE 441\nREM LENGTH 00:01:00\n"
           "TRACK 6 AUDIO\nREM LENGTH 01:01:00\n"
           "FILE \"one file.wav\" WAVE\nTRACK 7 AUDIO\nINDEX 01 00:02:00\n";  // behind its end
    Disc disc;
    ASSERT_TRUE(LoadDisc(folder / "disc.cue", disc));
    const uint32_t expected[] = {30, 45, 0, 150, 75, 4575, 0};
    ASSERT_EQ(disc.layout.tracks.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(disc.layout.tracks[i].sectors, expected[i]) << "track " << i + 1;

    OpenTrackFile open;
    int16_t samples[2 * kSectorFrames];
    // The file's beginning and end, the tone, data, silence, nothing.
    const std::pair<uint32_t, int> levels[] = {{0, 319}, {74, 23999}, {75, 6000}, {224, 6000},
                                               {225, 0}, {300, 0},    {4875, 0}};
    for (const auto& [sector, level] : levels) {
        ReadDiscSector(disc, open, sector, samples);
        EXPECT_NEAR(*std::max_element(std::begin(samples), std::end(samples)), level, level / 100)
            << sector;
    }
    std::filesystem::remove_all(folder);
    EXPECT_FALSE(LoadDisc(folder / "disc.cue", disc));
    EXPECT_EQ(disc.layout.sectors, 4875U);
}

// Three tracks of 10 s; the second is data when asked.
static Transport LoadedDrive(bool isSecondAudio = true) {
    Transport drive;
    ChangeDisc(drive,
               DiscLayout{{{0, 750, true}, {750, 750, isSecondAudio}, {1500, 750, true}}, 2250}, 0,
               0);
    return drive;
}

TEST(Transport, PauseReadsAsStoppedAndBothWaysOnGoOnFromThere) {
    for (const bool byResume : {false, true}) {
        Transport drive = LoadedDrive();
        PlayDisc(drive, 0, 300, 0);
        ASSERT_EQ(PauseDisc(drive, 2000), DriveResult::kDone);
        EXPECT_EQ(ModeOfDrive(drive, 2000), DriveMode::kStopped);
        EXPECT_EQ(SectorOfDrive(drive, 60000), 150U);
        const DriveResult result = byResume ? ResumeDisc(drive, 60000)
                                            : PlayDisc(drive, std::nullopt, std::nullopt, 60000);
        ASSERT_EQ(result, DriveResult::kDone);
        EXPECT_EQ(SectorOfDrive(drive, 61000), 225U);
        // Only a resumed drive still knows where it was to stop.
        EXPECT_EQ(ModeOfDrive(drive, 63000), byResume ? DriveMode::kStopped : DriveMode::kPlaying);
    }
}

TEST(Transport, WhatIsRefusedLeavesTheDrivePlaying) {
    Transport drive = LoadedDrive();
    PlayDisc(drive, 100, std::nullopt, 0);
    for (const auto& [from, to] :
         {std::pair<std::optional<uint32_t>, std::optional<uint32_t>>{2251, {}},
          {200, 199},
          {200, 2251},
          {{}, 100}})
        EXPECT_EQ(PlayDisc(drive, from, to, 1000), DriveResult::kOutOfRange);
    EXPECT_EQ(ResumeDisc(drive, 1000), DriveResult::kNotPaused);
    EXPECT_EQ(SectorOfDrive(drive, 1000), 175U);
    EXPECT_EQ(ModeOfDrive(drive, 1000), DriveMode::kPlaying);
}

TEST(Transport, DataTracksAreNeitherStartedNorPlayedInto) {
    Transport drive = LoadedDrive(false);
    for (const uint32_t inside : {750U, 1499U})
        EXPECT_EQ(PlayDisc(drive, inside, std::nullopt, 0), DriveResult::kNotAudio);
    for (const auto& [from, end] : {std::pair{0U, 750U}, {1500U, 2250U}}) {
        ASSERT_EQ(PlayDisc(drive, from, std::nullopt, 0), DriveResult::kDone);
        EXPECT_EQ(SectorOfDrive(drive, 99000), end);
        EXPECT_EQ(ModeOfDrive(drive, 99000), DriveMode::kStopped);
    }
}

TEST(Transport, ADiscPutInNeverGoesOnWhereTheOtherWas) {
    for (const bool isPaused : {false, true}) {
        Transport drive = LoadedDrive();
        PlayDisc(drive, 800, std::nullopt, 0);
        if (isPaused) PauseDisc(drive, 500);
        ChangeDisc(drive, drive.disc, 1000, 0);
        EXPECT_EQ(ModeOfDrive(drive, 1000), DriveMode::kStopped);
        EXPECT_EQ(SectorOfDrive(drive, 5000), 0U);
        EXPECT_EQ(ResumeDisc(drive, 5000), DriveResult::kNotPaused);
    }
    Transport empty;
    EXPECT_EQ(ModeOfDrive(empty, 0), DriveMode::kNotReady);
    for (const DriveResult result :
         {PlayDisc(empty, std::nullopt, std::nullopt, 0), PauseDisc(empty, 0), ResumeDisc(empty, 0),
          StopDisc(empty, 0), SeekDisc(empty, 0, 0)})
        EXPECT_EQ(result, DriveResult::kNoDisc);
}
