// The drive's behaviour over time: ends, pauses, doors, discs that come and go.
#include "demo/drive/transport.h"

#include <gtest/gtest.h>

// Three tracks of 10 s; the second is data when asked.
static DiscLayout ThreeTracks(bool isSecondAudio = true) {
    return {{{0, 750, true}, {750, 750, isSecondAudio}, {1500, 750, true}}, 2250};
}

static Transport LoadedDrive(bool isSecondAudio = true) {
    Transport drive;
    ChangeDisc(drive, ThreeTracks(isSecondAudio), 0, 0);
    return drive;
}

TEST(Transport, PauseReadsAsStoppedAndBothWaysOnGoOnFromThere) {
    for (const bool byResume : {false, true}) {
        Transport drive = LoadedDrive();
        PlayDisc(drive, 0, 300, 0);
        ASSERT_EQ(PauseDisc(drive, 2000), DriveResult::kDone);
        EXPECT_EQ(ModeOfDrive(drive, 2000), DriveMode::kStopped);
        EXPECT_EQ(SectorOfDrive(drive, 60000), 150U);
        if (byResume)
            ASSERT_EQ(ResumeDisc(drive, 60000), DriveResult::kDone);
        else
            ASSERT_EQ(PlayDisc(drive, std::nullopt, std::nullopt, 60000), DriveResult::kDone);
        EXPECT_EQ(SectorOfDrive(drive, 61000), 225U);
        // Only a resumed drive still knows where it was to stop.
        EXPECT_EQ(ModeOfDrive(drive, 63000), byResume ? DriveMode::kStopped : DriveMode::kPlaying);
    }
    Transport drive = LoadedDrive();
    EXPECT_EQ(ResumeDisc(drive, 0), DriveResult::kNotPaused);
    EXPECT_EQ(PauseDisc(drive, 0), DriveResult::kDone);
    EXPECT_EQ(ResumeDisc(drive, 0), DriveResult::kNotPaused) << "a stopped drive is not paused";
}

TEST(Transport, RefusedPlayLeavesTheDrivePlaying) {
    Transport drive = LoadedDrive();
    PlayDisc(drive, 100, std::nullopt, 0);
    EXPECT_EQ(PlayDisc(drive, 2251, std::nullopt, 1000), DriveResult::kOutOfRange);
    EXPECT_EQ(PlayDisc(drive, 200, 199, 1000), DriveResult::kOutOfRange);
    EXPECT_EQ(PlayDisc(drive, 200, 2251, 1000), DriveResult::kOutOfRange);
    EXPECT_EQ(PlayDisc(drive, std::nullopt, 100, 1000), DriveResult::kOutOfRange) << "behind it";
    EXPECT_EQ(SectorOfDrive(drive, 1000), 175U);
    EXPECT_EQ(ModeOfDrive(drive, 1000), DriveMode::kPlaying);
}

TEST(Transport, DataTracksAreNeitherStartedNorPlayedInto) {
    Transport drive = LoadedDrive(false);
    EXPECT_EQ(PlayDisc(drive, 750, std::nullopt, 0), DriveResult::kNotAudio);
    EXPECT_EQ(PlayDisc(drive, 1499, std::nullopt, 0), DriveResult::kNotAudio);
    ASSERT_EQ(PlayDisc(drive, 0, std::nullopt, 0), DriveResult::kDone);
    EXPECT_EQ(ModeOfDrive(drive, 10000), DriveMode::kStopped);
    EXPECT_EQ(SectorOfDrive(drive, 99000), 750U);
    ASSERT_EQ(PlayDisc(drive, 1500, std::nullopt, 0), DriveResult::kDone);
    EXPECT_EQ(SectorOfDrive(drive, 99000), 2250U);
}

TEST(Transport, ASwappedOrRemovedDiscNeverGoesOnPlaying) {
    Transport drive = LoadedDrive();
    PlayDisc(drive, 800, std::nullopt, 0);
    ChangeDisc(drive, ThreeTracks(), 1000, 0);
    EXPECT_EQ(ModeOfDrive(drive, 1000), DriveMode::kStopped);
    EXPECT_EQ(SectorOfDrive(drive, 5000), 0U);
    PlayDisc(drive, 800, std::nullopt, 2000);
    PauseDisc(drive, 3000);
    ChangeDisc(drive, std::nullopt, 4000, 500);
    EXPECT_EQ(ModeOfDrive(drive, 5000), DriveMode::kNotReady);
    for (const DriveResult result :
         {PlayDisc(drive, std::nullopt, std::nullopt, 5000), PauseDisc(drive, 5000),
          ResumeDisc(drive, 5000), StopDisc(drive, 5000), SeekDisc(drive, 0, 5000)})
        EXPECT_EQ(result, DriveResult::kNoDisc);
    ChangeDisc(drive, ThreeTracks(), 6000, 0);
    EXPECT_EQ(ResumeDisc(drive, 6000), DriveResult::kNotPaused) << "the pause was the old disc's";
}
